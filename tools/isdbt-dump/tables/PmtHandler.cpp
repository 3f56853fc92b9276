// Program map table: the programme's PCR PID and descriptors, and each
// elementary stream with its type, PID and ES_info descriptors. The PMT also
// tells the router where the programme's application (AIT) and DSM-CC
// carousel sections are.
#include "../Names.h"
#include "DescriptorPrinter.h"
#include "TableHandlers.h"

using namespace Vuro;

namespace VuroTools {

namespace {

// The descriptors of the programme or of one stream. Content availability is
// left out of the owners' tag lists on purpose (only its getter reaches it),
// so it is printed after them.
template <class Owner>
void printStreamDescriptors(const Owner& owner, const TContentAvailabilityDescriptor* contentAvailability,
                            TreeOut& out)
{
    out.beginList("descriptors");
    for (U8 tag : owner.getDescriptorTags())
        if (const TISDBTDescriptor* descriptor = owner.getDescriptor(tag))
            printDescriptor(*descriptor, out);
    if (contentAvailability)
        printDescriptor(*contentAvailability, out);
    out.end();
}

// getProgramMap takes an 8-bit position: the entries it can reach.
U32 reachableEntries(const TPMTTable& pmt)
{
    return pmt.size() < 256 ? pmt.size() : 256;
}

class PmtHandler : public TableHandlerOf<TPMTTable> {
public:
    PmtHandler() : TableHandlerOf("PMT", ROLE_PMT, 0x02) {}

protected:
    TPMTTable* parseTable(U8* section, U32 length, TPMTTable* previous, U16* errorCode) const override
    {
        // Flag order of this table: parseDescriptors, then checkCRC32.
        return TPMTTable::parse(section, length, TRUE, TRUE, errorCode, previous);
    }

    void printTable(const TPMTTable& pmt, TreeOut& out) const override
    {
        printVersionedHeader(pmt, "program_number", out);
        out.hex("PCR_PID", pmt.getPCRPID(), 4);
        printStreamDescriptors(pmt, pmt.getContentAvailabilityDescriptor(), out);
        out.beginList("streams");
        for (U32 i = 0; i < reachableEntries(pmt); ++i) {
            const TProgramMap* stream = pmt.getProgramMap(static_cast<U8>(i));
            if (!stream)
                continue;
            beginKeyedItem(out, "stream", stream->getElementaryPID(), 4);
            out.named("stream_type", stream->getStreamType(), 2, streamTypeName(stream->getStreamType()));
            out.hex("elementary_PID", stream->getElementaryPID(), 4);
            printStreamDescriptors(*stream, stream->getContentAvailabilityDescriptor(FALSE, nullptr), out);
            out.end();
        }
        out.end();
    }

    void announceFrom(const TPMTTable& pmt, PidAnnouncements& router) const override
    {
        for (U32 i = 0; i < reachableEntries(pmt); ++i) {
            const TProgramMap* stream = pmt.getProgramMap(static_cast<U8>(i));
            if (!stream)
                continue;
            switch (stream->getStreamType()) {
            case TProgramMap::STREAM_TYPE_SECTION: // private sections: the Ginga AIT
                router.announce(stream->getElementaryPID(), ROLE_AIT);
                break;
            case TProgramMap::STREAM_TYPE_0X0B: // DSM-CC sections: carousels, stream descriptors
            case TProgramMap::STREAM_TYPE_0X0C:
            case TProgramMap::STREAM_TYPE_0X0D:
                router.announce(stream->getElementaryPID(), ROLE_DSMCC);
                break;
            default:
                break;
            }
        }
    }
};

} // namespace

std::unique_ptr<TableHandler> makePmtHandler() { return std::make_unique<PmtHandler>(); }

} // namespace VuroTools
