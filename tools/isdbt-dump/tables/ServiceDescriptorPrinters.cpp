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
        out.hexValue(cell.getElementaryCellIDs()[i], 2);
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
    // The library reads each 3-bit count with a 2-bit mask.
    const WireBody wire = wireBody(d);
    const unsigned counts = wire.has(0) ? wire.u8(0) : 0;
    out.named("number_of_horizontal_elementary_cells", d.getNumberOfHorizontalCells(), 1,
              std::to_string(d.getNumberOfHorizontalCells() + 1).c_str());
    if (wire.has(0) && ((counts >> 4) & 0x07) != d.getNumberOfHorizontalCells())
        out.wireNamed("number_of_horizontal_elementary_cells", (counts >> 4) & 0x07, 1,
                      std::to_string(((counts >> 4) & 0x07) + 1).c_str());
    out.named("number_of_vertical_elementary_cells", d.getNumberOfVerticalCells(), 1,
              std::to_string(d.getNumberOfVerticalCells() + 1).c_str());
    if (wire.has(0) && (counts & 0x07) != d.getNumberOfVerticalCells())
        out.wireNamed("number_of_vertical_elementary_cells", counts & 0x07, 1, std::to_string((counts & 0x07) + 1).c_str());
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
    // taken from the byte before its broadcast position; beside each, the
    // value at its broadcast position.
    const WireBody wire = wireBody(d);
    out.hex("stream_content", d.getStreamContent(), 1);
    out.hex("component_type", d.getComponentType(), 2);
    if (wire.has(2))
        out.wireOnly("component_tag", wire.u8(2), 2);
    out.hex("stream_type", d.getStreamType(), 2);
    if (wire.has(3))
        wireIfDiffers(out, "stream_type", d.getStreamType(), wire.u8(3), 2);
    out.hex("simulcast_group", d.getSimulcastGroup(), 2);
    if (wire.has(4))
        wireIfDiffers(out, "simulcast_group", d.getSimulcastGroup(), wire.u8(4), 2);
    const bool flags = wire.has(5);
    const unsigned wireFlags = flags ? wire.u8(5) : 0;
    out.number("ES_multi_lingual", d.getEsMultiLingual());
    if (flags)
        wireIfDiffers(out, "ES_multi_lingual", d.getEsMultiLingual(), wireFlags >> 7, 0);
    out.number("main_component", d.getMainComponent());
    if (flags)
        wireIfDiffers(out, "main_component", d.getMainComponent(), (wireFlags >> 6) & 0x01, 0);
    out.number("quality_indicator", d.getQualityIndicator());
    if (flags)
        wireIfDiffers(out, "quality_indicator", d.getQualityIndicator(), (wireFlags >> 4) & 0x03, 0);
    out.number("sampling_rate", d.getSamplingRate());
    if (flags)
        wireIfDiffers(out, "sampling_rate", d.getSamplingRate(), (wireFlags >> 1) & 0x07, 0);
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
