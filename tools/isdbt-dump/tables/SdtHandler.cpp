// Service description table: the services of the actual transport stream
// with their EIT flags, running status, scrambling and descriptors.
#include "../Names.h"
#include "DescriptorPrinter.h"
#include "TableHandlers.h"

using namespace Vuro;

namespace VuroTools {

namespace {

class SdtHandler : public TableHandlerOf<TSDTTable> {
public:
    // Other-stream sections (0x46) are not taken: the library refuses them,
    // so they are counted as not decoded, like NIT other.
    SdtHandler() : TableHandlerOf("SDT", ROLE_SDT, 0x42) {}

protected:
    TSDTTable* parseTable(U8* section, U32 length, TSDTTable* previous, U16* errorCode) const override
    {
        // Flag order of this table: parseDescriptors, then checkCRC32.
        return TSDTTable::parse(section, length, TRUE, TRUE, errorCode, previous);
    }

    void printTable(const TSDTTable& sdt, TreeOut& out) const override
    {
        printVersionedHeader(sdt, "transport_stream_id", out);
        out.hex("original_network_id", sdt.getOriginalNetworkID(), 4);
        out.beginList("services");
        for (U16 id : sdt.getServiceIDs()) {
            const TServiceDescription* service = sdt.getServiceDescription(id);
            if (!service)
                continue;
            beginKeyedItem(out, "service", id, 4);
            out.hex("service_id", service->getServiceID(), 4);
            out.flag("EIT_schedule_flag", service->hasEITSchedule() != 0);
            out.flag("EIT_present_following_flag", service->hasEITPresentFollowing() != 0);
            out.named("running_status", service->getRunningStatus(), 1, runningStatusName(service->getRunningStatus()));
            out.named("free_CA_mode", service->getFreeCAMode(), 1,
                      service->getFreeCAMode() ? "scrambled" : "not scrambled");
            printDescriptorsOf(*service, out);
            out.end();
        }
        out.end();
    }
};

} // namespace

std::unique_ptr<TableHandler> makeSdtHandler() { return std::make_unique<SdtHandler>(); }

} // namespace VuroTools
