// Network information table: network descriptors and the transport streams
// with theirs (delivery system, services, partial reception, TS information).
#include "DescriptorPrinter.h"
#include "TableHandlers.h"

using namespace Vuro;

namespace VuroTools {

namespace {

class NitHandler : public TableHandlerOf<TNITTable> {
public:
    NitHandler() : TableHandlerOf("NIT", ROLE_NIT, 0x40) {}

protected:
    TNITTable* parseTable(U8* section, U32 length, TNITTable* previous, U16* errorCode) const override
    {
        return TNITTable::parse(section, length, TRUE, TRUE, errorCode, previous);
    }

    void printTable(const TNITTable& nit, TreeOut& out) const override
    {
        printVersionedHeader(nit, "network_id", out);
        printDescriptorsOf(nit, out);
        out.beginList("transport_streams");
        for (U16 id : nit.getTransportStreamIDs()) {
            const TTransportStreamInfo* stream = nit.getTransportStreamInfo(id);
            beginKeyedItem(out, "transport stream", id, 4);
            out.hex("transport_stream_id", stream->getTransportStreamID(), 4);
            out.hex("original_network_id", stream->getOriginalNetworkID(), 4);
            printDescriptorsOf(*stream, out);
            out.end();
        }
        out.end();
    }
};

} // namespace

std::unique_ptr<TableHandler> makeNitHandler() { return std::make_unique<NitHandler>(); }

} // namespace VuroTools
