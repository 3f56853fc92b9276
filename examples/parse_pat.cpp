// Parses one program association section and prints what it announces.
#include <cstdio>

#include <VuroISDBT.h>

using namespace Vuro;

int main()
{
    // PAT of a Brazilian terrestrial multiplex: transport_stream_id 0x0640,
    // version 1, the NIT on PID 0x0010, full-seg service 0xE580 with its PMT
    // on PID 0x01F0 and one-seg service 0xE598 with its PMT on 0x1FC8; the
    // CRC_32 is filled in below.
    U8 section[] = {0x00, 0xB0, 0x15, 0x06, 0x40, 0xC3, 0x00, 0x00, 0x00, 0x00, 0xE0, 0x10,
                    0xE5, 0x80, 0xE1, 0xF0, 0xE5, 0x98, 0xFF, 0xC8, 0x00, 0x00, 0x00, 0x00};
    const U32 crc = ISDBTUtils::getSectionCRC32(section, sizeof section - 4);
    section[sizeof section - 4] = static_cast<U8>(crc >> 24);
    section[sizeof section - 3] = static_cast<U8>(crc >> 16);
    section[sizeof section - 2] = static_cast<U8>(crc >> 8);
    section[sizeof section - 1] = static_cast<U8>(crc);

    U16 error = 0;
    TPATTable* pat = TPATTable::parse(section, sizeof section, TRUE, TRUE, &error, nullptr);
    if (!pat) {
        std::printf("PAT refused, error 0x%04X\n", error);
        return 1;
    }
    std::printf("PAT transport_stream_id 0x%04X version %u CRC_32 %s\n", pat->getTransportStreamID(),
                pat->getVersion(), ISDBTUtils::getSectionCRC32(section, sizeof section) == 0 ? "ok" : "bad");
    std::printf("  network PID 0x%04X\n", pat->getNetworkPid());
    for (U16 number : pat->getProgramNumbers())
        std::printf("  program 0x%04X -> PMT PID 0x%04X\n", number, pat->get(number)->getProgramMapPid());
    delete pat;
    return 0;
}
