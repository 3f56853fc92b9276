// Watches for a receiver software download announced by the SDTT: which
// maker and model it is for, which installed versions it replaces, whether
// it is mandatory, when it is broadcast, and what the download carries.
// Printed once per SDTT version.
//
//   software-download [capture.ts]   (the bundled sample stream by default)
#include <cstdio>
#include <ctime>
#include <map>
#include <memory>
#include <vector>

#include "ExampleCapture.h"

using namespace Vuro;

// The SDTT held for one maker/model, with the bytes it was parsed from: its
// download content descriptors point into those bytes.
struct Held {
    std::vector<U8> bytes;
    std::unique_ptr<TSDTTTable> table;
};

static void printContent(const TDownloadContent& content)
{
    std::printf("  group %u: versions from 0x%03X%s to 0x%03X, %s\n", content.getGroup(),
                content.getTargetVersion(), content.getVersionIndicator() == 1 ? " on" : "",
                content.getNewVersion(), content.getDownloadLevel() == 1 ? "mandatory" : "optional");
    for (U32 i = 0; i < content.getScheduleInfoSize(); ++i) {
        const TScheduleInfo* period = content.getScheduleInfo(static_cast<U8>(i));
        const std::time_t start = period->getStartTime(); // seconds since 1970, UTC
        std::tm utc{};
        gmtime_r(&start, &utc);
        char when[32];
        std::strftime(when, sizeof when, "%Y-%m-%d %H:%M UTC", &utc);
        const U32 d = period->getDuration(); // BCD hh mm ss
        std::printf("    broadcast %s for %02X:%02X:%02X\n", when, (d >> 16) & 0xFF, (d >> 8) & 0xFF, d & 0xFF);
    }
    if (const TDownloadContentDescriptor* download = content.getDownloadContentDescriptor()) {
        std::printf("    download 0x%08X: %u bytes in %u modules, component_tag 0x%02X%s\n", download->getDownloadID(),
                    download->getComponentSize(), download->getDownloadContentDescriptorItemSize(),
                    download->getComponentTag(), download->getReboot() ? ", reboots the receiver" : "");
        if (download->getTextInfoFlag())
            std::printf("    text (%s): %s\n", download->getLanguageCode().c_str(),
                        VuroExamples::utf8(download->getText()).c_str());
    }
}

int main(int argc, char** argv)
{
    std::map<U16, Held> held; // by table_id_extension: maker_id and model_id

    const int status = VuroExamples::readCapture(argc, argv, [&](U16 pid, U8* section, U32 length) {
        if ((pid != 0x0023 && pid != 0x0028) || section[0] != 0xC3 || length < 5)
            return;
        Held& last = held[static_cast<U16>(section[3] << 8 | section[4])];
        std::vector<U8> bytes(section, section + length);
        U16 error = TISDBTTable::ERROR_OK;
        TSDTTTable* sdtt = TSDTTTable::parse(bytes.data(), length, TRUE, TRUE, &error, last.table.get());
        if (!sdtt)
            return; // the same version again, or refused
        last.table.reset(sdtt);
        last.bytes.swap(bytes); // moves the bytes the table points into, not a copy
        std::printf("software download for maker 0x%02X model 0x%02X (version %u, service 0x%04X): %u contents\n",
                    sdtt->getMakerID(), sdtt->getModelID(), sdtt->getVersion(), sdtt->getServiceID(),
                    sdtt->getDownloadContentSize());
        for (U32 i = 0; i < sdtt->getDownloadContentSize(); ++i)
            printContent(*sdtt->getDownloadContent(static_cast<U8>(i)));
    });
    return status;
}
