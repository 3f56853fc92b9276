// Printers of the service and event descriptors (SDT services, EIT events).
#include "../Names.h"
#include "DescriptorPrinterSupport.h"

using namespace Vuro;

namespace VuroTools {

namespace {

void service(const TServiceDescriptor& d, TreeOut& out)
{
    out.named("service_type", d.getServiceType(), 2, serviceTypeName(d.getServiceType()));
    out.text("service_provider_name", d.getServiceProviderName());
    out.text("service_name", d.getServiceName());
}

void bouquetName(const TBouquetNameDescriptor& d, TreeOut& out) { out.text("bouquet_name", d.getBouquetName()); }

void countryAvailability(const TCountryAvailabilityDescriptor& d, TreeOut& out)
{
    out.named("country_availability_flag", d.getCountryAvailabilityFlag(), 1,
              d.getCountryAvailabilityFlag() ? "available in the countries listed" : "not available in them");
    out.beginList("country_codes");
    for (U32 i = 0; i < d.size(); ++i) {
        // Three ISO 3166 letters in 24 bits.
        const U32 code = d.get(i);
        const char letters[] = {static_cast<char>(code >> 16), static_cast<char>(code >> 8), static_cast<char>(code)};
        out.value(displayText(std::string(letters, sizeof letters)));
    }
    out.end();
}

void nvodReference(const TNVODReferenceDescriptor& d, TreeOut& out)
{
    printEntries("services", "service", d.size(), [&d](unsigned i) { return d.get(static_cast<U8>(i)); },
                 printServiceLocation<TNVODReferenceDescriptorItem>, out);
}

void timeShiftedService(const TTimeShiftedServiceDescriptor& d, TreeOut& out)
{
    out.hex("reference_service_id", d.getReferenceServiceID(), 4);
}

void mosaicCell(const TMosaicDescriptorCell& cell, TreeOut& out)
{
    static const char* const kPresentations[] = {"undefined", "video", "still picture", "graphics/text"};
    static const char* const kLinkages[] = {"undefined", "bouquet related", "service related",
                                            "other mosaic related", "event related"};
    out.number("logical_cell_id", cell.getLogicalCellID());
    out.named("logical_cell_presentation_info", cell.getLogicalCellPresentationInfo(), 1,
              nameIn(kPresentations, cell.getLogicalCellPresentationInfo()));
    out.number("elementary_cell_field_length", cell.getElementaryCellFieldLength());
    out.beginList("elementary_cell_ids");
    for (unsigned i = 0; cell.getElementaryCellIDs() && i < cell.getElementaryCellFieldLength(); ++i)
        out.value(std::to_string(cell.getElementaryCellIDs()[i]));
    out.end();
    const U8 linkage = cell.getCellLinkageInfo();
    out.named("cell_linkage_info", linkage, 2, nameIn(kLinkages, linkage));
    // What follows depends on the linkage: a bouquet, a service, or an event of a service.
    if (linkage == TMosaicDescriptorCell::LINKAGE_TYPE_BOUQUET_RELATED)
        out.hex("bouquet_id", cell.getBouquetID(), 4);
    if (linkage >= TMosaicDescriptorCell::LINKAGE_TYPE_SERVICE_RELATED)
        printServiceLocation(cell, out);
    if (linkage == TMosaicDescriptorCell::LINKAGE_TYPE_EVENT_RELATED)
        out.hex("event_id", cell.getEventID(), 4);
}

void mosaic(const TMosaicDescriptor& d, TreeOut& out)
{
    // The cell counts are carried as count - 1. mosaic_entry_point is not
    // decoded by the library, so it is not shown.
    out.named("number_of_horizontal_elementary_cells", d.getNumberOfHorizontalCells(), 1,
              std::to_string(d.getNumberOfHorizontalCells() + 1).c_str());
    out.named("number_of_vertical_elementary_cells", d.getNumberOfVerticalCells(), 1,
              std::to_string(d.getNumberOfVerticalCells() + 1).c_str());
    printEntries("logical_cells", "cell", d.size(), [&d](unsigned i) { return d.getCell(i); }, mosaicCell, out);
}

void parentalRatingItem(const TParentalRatingDescriptorItem& item, TreeOut& out)
{
    static const char* const kAges[] = {nullptr, "L", "10", "12", "14", "16", "18"};
    static const char* const kContents[] = {nullptr, "drugs", "violence", "violence and drugs", "sex",
                                            "sex and drugs", "violence and sex", "violence, sex and drugs"};
    out.text("country_code", item.getCountryCode());
    out.named("rating", item.getRating(), 1, nameIn(kAges, item.getRating()));
    out.named("rating_content", item.getRatingContent(), 1, nameIn(kContents, item.getRatingContent()));
}

void parentalRating(const TParentalRatingDescriptor& d, TreeOut& out)
{
    printEntries("ratings", "rating", d.size(), [&d](unsigned i) { return d.get(static_cast<U8>(i)); },
                 parentalRatingItem, out);
}

void component(const TComponentDescriptor& d, TreeOut& out)
{
    out.hex("stream_content", d.getStreamContent(), 1);
    out.hex("component_type", d.getComponentType(), 2);
    out.hex("component_tag", d.getComponentTag(), 2);
    out.text("ISO_639_language_code", d.getLanguageCode());
    out.text("text", d.getText());
}

void shortEvent(const TShortEventDescriptor& d, TreeOut& out)
{
    out.text("ISO_639_language_code", d.getLanguageCode());
    out.text("event_name", d.getEventName());
    out.text("text", d.getEventDescription());
}

void audioComponent(const TAudioComponentDescriptor& d, TreeOut& out)
{
    // As the library maps the bytes: from component_tag on, each field is
    // taken from the byte before its broadcast position, so the values are
    // shown under the library's names and not given broadcast meanings.
    out.hex("stream_content", d.getStreamContent(), 1);
    out.hex("component_type", d.getComponentType(), 2);
    out.hex("stream_type", d.getStreamType(), 2);
    out.hex("simulcast_group", d.getSimulcastGroup(), 2);
    out.number("ES_multi_lingual", d.getEsMultiLingual());
    out.number("main_component", d.getMainComponent());
    out.number("quality_indicator", d.getQualityIndicator());
    out.number("sampling_rate", d.getSamplingRate());
    out.text("ISO_639_language_code", d.getLanguageCode1());
    if (d.getEsMultiLingual())
        out.text("ISO_639_language_code_2", d.getLanguageCode2());
    out.hex("text_char", d.getTextChar(), 2);
}

void content(const TContentDescriptor& d, TreeOut& out)
{
    // Genres of the Brazilian content descriptor.
    static const char* const kGenres[] = {"news",    "sports",       "education",   "soap opera",
                                          "mini-series", "series",   "variety",     "reality show",
                                          "information", "comedy",   "children",    "erotic",
                                          "movie",   "sweepstakes, telesales, awards", "debate/interview", "other"};
    out.named("content_nibble_level_1", d.getContentNibbleLevel1(), 1, nameIn(kGenres, d.getContentNibbleLevel1()));
    out.hex("content_nibble_level_2", d.getContentNibbleLevel2(), 1);
    out.hex("user_byte", d.getUserByte(), 2);
}

} // namespace

std::vector<DescriptorPrinterEntry> serviceDescriptorPrinters()
{
    return {
        printerFor<TServiceDescriptor, service>(),
        printerFor<TBouquetNameDescriptor, bouquetName>(),
        printerFor<TCountryAvailabilityDescriptor, countryAvailability>(),
        printerFor<TNVODReferenceDescriptor, nvodReference>(),
        printerFor<TTimeShiftedServiceDescriptor, timeShiftedService>(),
        printerFor<TMosaicDescriptor, mosaic>(),
        printerFor<TParentalRatingDescriptor, parentalRating>(),
        printerFor<TComponentDescriptor, component>(),
        printerFor<TShortEventDescriptor, shortEvent>(),
        printerFor<TAudioComponentDescriptor, audioComponent>(),
        printerFor<TContentDescriptor, content>(),
    };
}

} // namespace VuroTools
