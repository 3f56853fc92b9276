#include "FuzzEntries.h"

namespace VuroFuzz {

using namespace Vuro;

namespace {

// A descriptor whose descriptor_length runs past the end of the section it
// sits in, as a table hands it over: dataLength descriptor_length + 2, the
// limit at the end of the input.
template <class D>
void descriptorPastEnd(U8* data, U32 length)
{
    if (length < 2)
        return;
    U32 parsed = 0;
    U16 code = 0;
    delete D::parse(data, data[1] + 2u, &parsed, &code, data + length);
}

} // namespace

// The three ways a descriptor class is reached: "D", "D/within", "D/pastEnd".
#define VURO_STREAM_DESCRIPTOR(D)                                                                             \
    do {                                                                                                      \
        entries.push_back({#D, descriptor<D>});                                                               \
        entries.push_back({#D "/within", descriptorWithin<D>});                                               \
        entries.push_back({#D "/pastEnd", descriptorPastEnd<D>});                                             \
    } while (0)

std::vector<Entry> streamEntries()
{
    std::vector<Entry> entries;
    VURO_STREAM_DESCRIPTOR(TCAIdentifierDescriptor);
    VURO_STREAM_DESCRIPTOR(TContentAvailabilityDescriptor);
    VURO_STREAM_DESCRIPTOR(TCopyrightDescriptor);
    VURO_STREAM_DESCRIPTOR(TStreamIdentifierDescriptor);
    VURO_STREAM_DESCRIPTOR(THierarchicalTransmissionDescriptor);
    VURO_STREAM_DESCRIPTOR(TDataComponentDescriptor);
    VURO_STREAM_DESCRIPTOR(TTargetRegionDescriptor);
    VURO_STREAM_DESCRIPTOR(TVideoDecodeControlDescriptor);
    VURO_STREAM_DESCRIPTOR(TConditionalPlaybackDescriptor);
    VURO_STREAM_DESCRIPTOR(TAVCVideoDescriptor);
    VURO_STREAM_DESCRIPTOR(TAVCTimingAndHRDDescriptor);
    VURO_STREAM_DESCRIPTOR(TAACDescriptor);
    VURO_STREAM_DESCRIPTOR(TCarouselIdentifierDescriptor);
    VURO_STREAM_DESCRIPTOR(TISO639LanguageDescriptor);
    VURO_STREAM_DESCRIPTOR(TLogoTransmissionDescriptor);
    VURO_STREAM_DESCRIPTOR(TDigitalCopyControlDescriptor);
    VURO_STREAM_DESCRIPTOR(TCarouselCompatibleCompositeDescriptor);
    entries.push_back({"TDigitalCopyControlDescriptorItem", item<TDigitalCopyControlDescriptorItem>});
    return entries;
}

} // namespace VuroFuzz
