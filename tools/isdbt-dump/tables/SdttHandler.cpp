// Software download trigger table: the maker and model addressed, where the
// download is carried, and per content the versions, download level,
// broadcast periods and the download content descriptor.
#include <ctime>

#include "DescriptorPrinter.h"
#include "DescriptorPrinterSupport.h"
#include "TableHandlers.h"

using namespace Vuro;

namespace VuroTools {

namespace {

// Local date-times of the periods. The dump keeps no TOT offset for other
// tables, so the periods are shown in Brasília time (UTC-03:00), the
// offset the Brazilian networks signal for most of the country, and the
// offset is printed beside them.
const int kLocalTimeOffsetSeconds = -3 * 3600;

std::string dateTime(S32 seconds, int offsetSeconds)
{
    const std::time_t shifted = static_cast<std::time_t>(seconds) + offsetSeconds;
    std::tm fields {};
    char text[48] = "";
    if (!gmtime_r(&shifted, &fields))
        return text;
    const std::size_t used = std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S UTC", &fields);
    if (offsetSeconds != 0 && used > 0) {
        const int minutes = (offsetSeconds < 0 ? -offsetSeconds : offsetSeconds) / 60;
        std::snprintf(text + used, sizeof text - used, "%c%02d:%02d", offsetSeconds < 0 ? '-' : '+', minutes / 60,
                      minutes % 60);
    }
    return text;
}

// The duration is carried as six BCD digits hhmmss.
std::string bcdDuration(U32 duration)
{
    char text[16];
    std::snprintf(text, sizeof text, "%02X:%02X:%02X", (duration >> 16) & 0xFF, (duration >> 8) & 0xFF,
                  duration & 0xFF);
    return text;
}

const char* downloadLevelName(U8 level)
{
    static const char* const kLevels[] = {"optional", "mandatory"};
    return nameIn(kLevels, level);
}

const char* versionIndicatorName(U8 indicator)
{
    static const char* const kIndicators[] = {"all versions", "target version and later",
                                              "target version and earlier", "target version only"};
    return nameIn(kIndicators, indicator);
}

void printContent(const TDownloadContent& content, TreeOut& out)
{
    out.number("group", content.getGroup());
    out.hex("target_version", content.getTargetVersion(), 3);
    out.hex("new_version", content.getNewVersion(), 3);
    out.named("download_level", content.getDownloadLevel(), 1, downloadLevelName(content.getDownloadLevel()));
    out.named("version_indicator", content.getVersionIndicator(), 1,
              versionIndicatorName(content.getVersionIndicator()));
    out.number("schedule_timeshift_information", content.getScheduleTimeShiftInfo());
    printEntries(
        "schedules", "period", content.getScheduleInfoSize(),
        [&content](unsigned i) { return content.getScheduleInfo(static_cast<U8>(i)); },
        [](const TScheduleInfo& period, TreeOut& o) {
            o.number("start_time", period.getStartTime());
            o.label("start_time_utc", dateTime(period.getStartTime(), 0));
            o.label("start_time_local", dateTime(period.getStartTime(), kLocalTimeOffsetSeconds));
            o.hex("duration", period.getDuration(), 6);
            o.label("duration_text", bcdDuration(period.getDuration()));
        },
        out);
    printDescriptorsOf(content, out);
}

class SdttHandler : public TableHandlerOf<TSDTTTable> {
public:
    SdttHandler() : TableHandlerOf("SDTT", ROLE_SDTT, 0xC3) {}

protected:
    TSDTTTable* parseTable(U8* section, U32 length, TSDTTTable* previous, U16* errorCode) const override
    {
        // Flag order of this table: checkCRC32, then parseDescriptors.
        return TSDTTTable::parse(section, length, TRUE, TRUE, errorCode, previous);
    }

    void printTable(const TSDTTTable& sdtt, TreeOut& out) const override
    {
        printVersionedHeader(sdtt, "table_id_extension", out);
        out.hex("maker_id", sdtt.getMakerID(), 2);
        out.hex("model_id", sdtt.getModelID(), 2);
        printServiceLocation(sdtt, out);
        printEntries(
            "contents", "content", sdtt.getDownloadContentSize(),
            [&sdtt](unsigned i) { return sdtt.getDownloadContent(static_cast<U8>(i)); }, printContent, out);
    }
};

} // namespace

std::unique_ptr<TableHandler> makeSdttHandler() { return std::make_unique<SdttHandler>(); }

} // namespace VuroTools
