// Time offset table: the network's time and the local time offsets per
// country. The time field is UTC_time in the Brazilian syntax and JST_time on
// Japanese networks; the library decodes it alike (MJD and BCD as they
// stand), so the dump only names the zone the value is in.
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

    void printTable(const TTOTTable& tot, TreeOut& out) const override { printTableIn(tot, PrintContext(), out); }

    void printTableIn(const TTOTTable& tot, const PrintContext& context, TreeOut& out) const override
    {
        out.number("time", tot.getUnixTime());
        const std::time_t seconds = tot.getUnixTime();
        std::tm fields {};
        char text[32] = "";
        if (gmtime_r(&seconds, &fields))
            std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S ", &fields);
        // Before any network is seen, a local time offset for Japan tells.
        const char* zone = context.timeZone;
        const char* from = context.timeZoneSource;
        const auto* offsets = dynamic_cast<const TLocalTimeOffsetDescriptor*>(tot.getDescriptor(0x58));
        if (!context.timeZoneDecided && offsets)
            for (const std::string& code : offsets->getCountryCodes())
                if (code.compare(0, 3, "JPN") == 0) {
                    zone = "JST";
                    from = "country_code JPN";
                }
        out.label("time_text", std::string(text) + zone);
        out.label("time_zone", zone);
        out.label("time_zone_from", from);
        printDescriptorsOf(tot, out);
    }
};

} // namespace

std::unique_ptr<TableHandler> makeTotHandler() { return std::make_unique<TotHandler>(); }

} // namespace VuroTools
