// Printers of the stream descriptors of DSM-CC sections (table_id 0x3D):
// NPT reference and endpoint, stream mode and stream events.
#include "DescriptorPrinterSupport.h"

using namespace Vuro;

namespace VuroTools {

namespace {

// A 33-bit clock from its top bit and lower 32 bits (90 kHz units).
std::uint64_t clock33(U8 high, U32 low)
{
    return (std::uint64_t(high & 0x01) << 32) | low;
}

void nptReference(const TNPTReferenceDescriptor& d, TreeOut& out)
{
    out.flag("post_discontinuity_indicator", d.isPostDiscontinuity() != 0);
    out.number("dsm_contentId", d.getDSMCCContentID());
    out.number("STC_reference", static_cast<std::int64_t>(clock33(d.getSTCReferenceH(), d.getSTCReferenceL())));
    out.number("NPT_reference", static_cast<std::int64_t>(clock33(d.getNPTReferenceH(), d.getNPTReferenceL())));
    out.number("scale_numerator", d.getScaleNumerator());
    out.number("scale_denominator", d.getScaleDenominator());
}

void nptEndpoint(const TNPTEndpointDescriptor& d, TreeOut& out)
{
    out.number("start_NPT", static_cast<std::int64_t>(clock33(d.getNPTStartH(), d.getNPTStartL())));
    out.number("stop_NPT", static_cast<std::int64_t>(clock33(d.getNPTStopH(), d.getNPTStopL())));
}

void streamMode(const TStreamModeDescriptor& d, TreeOut& out)
{
    static const char* const kModes[] = {"open", "pause", "transport", "transport pause", "search transport",
                                         "search transport pause", "pause search transport", "end of stream",
                                         "pre-search transport", "pre-search transport pause"};
    out.named("stream_mode", d.getStreamMode(), 2, nameIn(kModes, d.getStreamMode()));
}

const char* streamEventName(U16 eventId)
{
    using E = TStreamEventDescriptor;
    switch (eventId) {
    case E::ISDBT_EVENT_ID_OPEN_BASE: return "open base";
    case E::ISDBT_EVENT_ID_ACTIVATE_BASE: return "activate base";
    case E::ISDBT_EVENT_ID_DEACTIVATE_BASE: return "deactivate base";
    case E::ISDBT_EVENT_ID_SAVE_BASE: return "save base";
    case E::ISDBT_EVENT_ID_CLOSE_BASE: return "close base";
    case E::ISDBT_EVENT_ID_ADD_DOCUMENT: return "add document";
    case E::ISDBT_EVENT_ID_REMOVE_DOCUMENT: return "remove document";
    case E::ISDBT_EVENT_ID_START_DOCUMENT: return "start document";
    case E::ISDBT_EVENT_ID_STOP_DOCUMENT: return "stop document";
    case E::ISDBT_EVENT_ID_PAUSE_DOCUMENT: return "pause document";
    case E::ISDBT_EVENT_ID_RESUME_DOCUMENT: return "resume document";
    case E::ISDBT_EVENT_ID_SAVE_DOCUMENT: return "save document";
    case E::ISDBT_EVENT_ID_REMOVE_BASE: return "remove base";
    case E::ISDBT_EVENT_ID_ADD_APPLICATION: return "add application";
    case E::ISDBT_EVENT_ID_REMOVE_APPLICATION: return "remove application";
    case E::ISDBT_EVENT_ID_SAVE_APPLICATION: return "save application";
    default: return nullptr;
    }
}

void streamEvent(const TStreamEventDescriptor& d, TreeOut& out)
{
    out.named("event_id", d.getEventID(), 4, streamEventName(d.getEventID()));
    out.number("event_NPT", static_cast<std::int64_t>(clock33(d.getEventNPTH(), d.getEventNPTL())));
    // The private data of a Ginga stream event carries its command text.
    const U8* data = d.getPrivateData();
    out.text("private_data", data ? std::string(reinterpret_cast<const char*>(data), d.getPrivateDataSize()) : "");
}

} // namespace

std::vector<DescriptorPrinterEntry> dsmccDescriptorPrinters()
{
    return {
        printerFor<TNPTReferenceDescriptor, nptReference>(),
        printerFor<TNPTEndpointDescriptor, nptEndpoint>(),
        printerFor<TStreamModeDescriptor, streamMode>(),
        printerFor<TStreamEventDescriptor, streamEvent>(),
    };
}

} // namespace VuroTools
