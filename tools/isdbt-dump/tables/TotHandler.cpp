// Time offset table: UTC time and the local time offsets per country.
#include <ctime>

#include "DescriptorPrinter.h"
#include "TableHandlers.h"

using namespace Vuro;

namespace VuroTools {

namespace {

class TotHandler : public TableHandlerOf<TTOTTable> {
public:
    TotHandler() : TableHandlerOf("TOT", ROLE_TOT, 0x73) {}

protected:
    TTOTTable* parseTable(U8* section, U32 length, TTOTTable* previous, U16* errorCode) const override
    {
        return TTOTTable::parse(section, length, TRUE, TRUE, errorCode, previous);
    }

    void printTable(const TTOTTable& tot, TreeOut& out) const override
    {
        out.number("utc_time", tot.getUnixTime());
        const std::time_t seconds = tot.getUnixTime();
        std::tm utc {};
        char text[32] = "";
        if (gmtime_r(&seconds, &utc))
            std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S UTC", &utc);
        out.label("utc_time_text", text);
        printDescriptorsOf(tot, out);
    }
};

} // namespace

std::unique_ptr<TableHandler> makeTotHandler() { return std::make_unique<TotHandler>(); }

} // namespace VuroTools
