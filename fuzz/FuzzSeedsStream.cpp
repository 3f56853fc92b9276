#include "FuzzSeeds.h"

namespace VuroFuzz {

using namespace VuroTest;

namespace {

// One realistic descriptor reached three ways: on its own, followed by the
// next descriptor of a PMT loop, and cut short by the end of the section.
void addDescriptor(std::vector<Seed>& seeds, const std::string& name, const Bytes& bytes)
{
    seeds.push_back({name, bytes});
    seeds.push_back({name + "/within", concat({bytes, descriptor(0x52, {0x30})})});
    seeds.push_back({name + "/pastEnd", Bytes(bytes.begin(), bytes.end() - (bytes.size() > 3 ? 2 : 0))});
}

} // namespace

std::vector<Seed> streamSeeds()
{
    std::vector<Seed> seeds;
    addDescriptor(seeds, "TCAIdentifierDescriptor", descriptor(0x53, {0x05, 0x01, 0x0B, 0x00, 0xFF}));
    addDescriptor(seeds, "TContentAvailabilityDescriptor", descriptor(0xDE, {0xDA}));
    addDescriptor(seeds, "TCopyrightDescriptor", descriptor(0x0D, {0xFF, 0xE1, 0x23}));
    addDescriptor(seeds, "TStreamIdentifierDescriptor", descriptor(0x52, {0x81}));
    addDescriptor(seeds, "THierarchicalTransmissionDescriptor", descriptor(0xC0, {0xFE, 0xE1, 0x11}));
    addDescriptor(seeds, "TDataComponentDescriptor", descriptor(0xFD, {0x00, 0x0C, 0x01, 0x02, 0x03}));
    addDescriptor(seeds, "TTargetRegionDescriptor", descriptor(0xC6, {0x01, 0x12, 0x34}));
    addDescriptor(seeds, "TVideoDecodeControlDescriptor", descriptor(0xC8, {0x50}));
    addDescriptor(seeds, "TConditionalPlaybackDescriptor", descriptor(0xF8, {0x05, 0x01, 0xE1, 0x00, 0xAA, 0xBB}));
    addDescriptor(seeds, "TAVCVideoDescriptor", descriptor(0x28, {0x64, 0x00, 0x28, 0x3F}));
    addDescriptor(seeds, "TAVCTimingAndHRDDescriptor",
                  descriptor(0x2A, {0x01, 0x80, 0, 0, 0, 1, 0, 0, 1, 0x2C, 0xA0, 0, 0, 1, 0x1F}));
    seeds.push_back({"TAVCTimingAndHRDDescriptor", descriptor(0x2A, {0x01, 0x7F, 0, 0, 0x03, 0xE9, 0x80})});
    addDescriptor(seeds, "TAACDescriptor", descriptor(0x7C, {0x2C, 0x80, 0x01, 0xAA, 0xBB}));
    addDescriptor(seeds, "TCarouselIdentifierDescriptor", descriptor(0x13, {0, 0, 0, 1, 0x01, 0x02, 0x03, 0x04}));
    addDescriptor(seeds, "TISO639LanguageDescriptor", descriptor(0x0A, {'p', 'o', 'r', 0x00, 'e', 'n', 'g', 0x03}));
    addDescriptor(seeds, "TLogoTransmissionDescriptor", descriptor(0xCF, {0x01, 0xFF, 0x05, 0xF1, 0x23, 0x00, 0x07}));
    seeds.push_back({"TLogoTransmissionDescriptor", descriptor(0xCF, {0x03, 'L', 'O', 'G', 'O'})});
    addDescriptor(seeds, "TDigitalCopyControlDescriptor", descriptor(0xC1, {0x76, 0x80, 0x03, 0xE4, 0x40, 0x0E}));
    seeds.push_back({"TDigitalCopyControlDescriptor", descriptor(0xC1, {0x10, 0x01, 0x20, 0x40})});
    addDescriptor(seeds, "TCarouselCompatibleCompositeDescriptor", descriptor(0xF7, {0x01, 0x02, 0x03, 0x04}));
    seeds.push_back({"TDigitalCopyControlDescriptorItem", {0xE4, 0x40}});
    return seeds;
}

} // namespace VuroFuzz
