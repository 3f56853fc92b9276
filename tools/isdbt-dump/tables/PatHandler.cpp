// Program association table: programs and their PMT PIDs, and the network PID.
#include "TableHandlers.h"

using namespace Vuro;

namespace VuroTools {

namespace {

class PatHandler : public TableHandlerOf<TPATTable> {
public:
    PatHandler() : TableHandlerOf("PAT", ROLE_PAT, 0x00) {}

protected:
    TPATTable* parseTable(U8* section, U32 length, TPATTable* previous, U16* errorCode) const override
    {
        return TPATTable::parse(section, length, TRUE, TRUE, errorCode, previous);
    }

    void printTable(const TPATTable& pat, TreeOut& out) const override
    {
        printVersionedHeader(pat, "transport_stream_id", out);
        out.hex("network_PID", pat.getNetworkPid(), 4);
        out.beginList("programs");
        for (U16 number : pat.getProgramNumbers()) {
            const TProgramAssociation* program = pat.get(number);
            beginKeyedItem(out, "program", number, 4);
            out.hex("program_number", number, 4);
            out.hex("program_map_PID", program->getProgramMapPid(), 4);
            out.end();
        }
        out.end();
    }

    void announceFrom(const TPATTable& pat, PidAnnouncements& router) const override
    {
        // No program_number 0 entry leaves the NIT on its default PID.
        if (pat.getNetworkPid() != 0)
            router.announce(pat.getNetworkPid(), ROLE_NIT);
        for (U16 number : pat.getProgramNumbers())
            router.announce(pat.get(number)->getProgramMapPid(), ROLE_PMT);
    }
};

} // namespace

std::unique_ptr<TableHandler> makePatHandler() { return std::make_unique<PatHandler>(); }

} // namespace VuroTools
