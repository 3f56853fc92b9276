#include "FuzzSeeds.h"

namespace VuroFuzz {

using namespace VuroTest;

namespace {

// transport_stream_id, original_network_id, reserved + 12-bit length, descriptors.
Bytes streamEntry(std::uint16_t tsid, std::uint16_t onid, const Bytes& descriptors)
{
    return concat({{static_cast<std::uint8_t>(tsid >> 8), static_cast<std::uint8_t>(tsid),
                     static_cast<std::uint8_t>(onid >> 8), static_cast<std::uint8_t>(onid),
                     static_cast<std::uint8_t>(0xF0 | (descriptors.size() >> 8)),
                     static_cast<std::uint8_t>(descriptors.size())},
                    descriptors});
}

} // namespace

std::vector<Seed> networkSeeds()
{
    const Bytes networkName = descriptor(0x40, {'R', 'e', 'd', 'e', ' ', 'V', 'u', 'R', 'O'});
    const Bytes systemManagement = descriptor(0xFE, {0x03, 0x01, 0xAA, 0x55});
    const Bytes linkage = descriptor(0x4A, {0x06, 0x40, 0x06, 0x40, 0xE5, 0x80, 0x01, 0x12});
    // Area code 0x123, guard interval 1/16, mode 1, UHF channels 20 and 33.
    const Bytes terrestrial = descriptor(0xFA, {0x12, 0x34, 0x0B, 0xC2, 0x0E, 0x9E});
    // Two services; the second with area_code_length 5 (two codes, odd byte).
    const Bytes emergency =
        descriptor(0xFC, {0xE5, 0x80, 0xC0, 0x02, 0x12, 0x30, 0xE5, 0x98, 0x00, 0x05, 0x45, 0x60, 0x78, 0x90});
    const Bytes partialReception = descriptor(0xFB, {0xE5, 0x98});
    // Remote key 5, name "Vuro HD", transmission types layer A (one-seg) and B.
    const Bytes tsInformation = descriptor(0xCD, {0x05, (7 << 2) | 2, 'V', 'u', 'r', 'o', ' ', 'H', 'D', 0x0F, 0x01,
                                                 0xE5, 0x98, 0xAF, 0x02, 0xE5, 0x80, 0xE5, 0x81});
    const Bytes serviceList = descriptor(0x41, {0xE5, 0x80, 0x01, 0xE5, 0x98, 0xC0});
    const Bytes entry =
        streamEntry(0x0640, 0x0640, concat({serviceList, tsInformation, terrestrial, partialReception}));
    const Bytes secondEntry = streamEntry(0x0641, 0x0640, descriptor(0xFB, {0xE6, 0x18}));
    return {
        {"TNetworkNameDescriptor", networkName},
        {"TNetworkNameDescriptor/within", concat({networkName, {0x00, 0x00}})},
        {"TSystemManagementDescriptor", systemManagement},
        {"TSystemManagementDescriptor/within", concat({systemManagement, {0xFF}})},
        {"TLinkageDescriptor", linkage},
        {"TLinkageDescriptor/within", concat({linkage, {0x00}})},
        {"TTerrestrialDeliverySystemDescriptor", terrestrial},
        {"TTerrestrialDeliverySystemDescriptor/within", concat({descriptor(0xFA, {0x12, 0x34, 0x0B}), {0xC2}})},
        {"TEmergencyInformationDescriptor", emergency},
        {"TEmergencyInformationDescriptor/within", concat({emergency, {0xE5, 0x80, 0x40, 0x00}})},
        {"TEmergencyInformationDescriptorItem", {0xE5, 0x80, 0xC0, 0x04, 0x12, 0x30, 0x45, 0x60}},
        {"TPartialReceptionDescriptor", partialReception},
        {"TPartialReceptionDescriptor/within", concat({descriptor(0xFB, {0xE5, 0x98, 0xE5}), {0x99}})},
        {"TTSInformationDescriptor", tsInformation},
        {"TTSInformationDescriptor/within", concat({tsInformation, {0x00, 0x00}})},
        {"TTSInformationDescriptorItem", {0xAF, 0x02, 0xE5, 0x80, 0xE5, 0x81}},
        {"TTransportStreamInfo", entry},
        {"TNITTable", SectionBuilder(0x40)
                          .longHeader(0x0640, 2)
                          .loop(concat({networkName, systemManagement, terrestrial, emergency, linkage}))
                          .loop(concat({entry, secondEntry}))
                          .build()},
    };
}

} // namespace VuroFuzz
