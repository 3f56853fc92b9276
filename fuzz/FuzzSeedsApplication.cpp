#include "FuzzSeeds.h"

namespace VuroFuzz {

using namespace VuroTest;

namespace {

using Byte = std::uint8_t;

// application_identifier, control code, 12-bit descriptors loop length, descriptors.
Bytes applicationEntry(std::uint32_t organisation, std::uint16_t id, Byte controlCode, const Bytes& descriptors)
{
    return concat({{static_cast<Byte>(organisation >> 24), static_cast<Byte>(organisation >> 16),
                    static_cast<Byte>(organisation >> 8), static_cast<Byte>(organisation), static_cast<Byte>(id >> 8),
                    static_cast<Byte>(id), controlCode, static_cast<Byte>(0xF0 | (descriptors.size() >> 8)),
                    static_cast<Byte>(descriptors.size())},
                   descriptors});
}

} // namespace

std::vector<Seed> applicationSeeds()
{
    const Bytes carousel = descriptor(0x02, {0x00, 0x01, 0x01, 0x00, 0x40});
    const Bytes remoteCarousel = descriptor(0x02, {0x00, 0x01, 0x02, 0x80, 0x06, 0x40, 0x06, 0x41, 0xE7, 0x60, 0x12});
    const Bytes ip = descriptor(0x02, {0x00, 0x02, 0x03, 0x80, 0x06, 0x40, 0x06, 0x41, 0x00, 0x01, 0x80, 3, 'u', 'r',
                                       'l', 8, 'h', 't', 't', 'p', ':', '/', '/', 'x'});
    const Bytes interactive{0x00, 0x03, 0x09, 3, 'u', 'r', 'l', 2, 1, 'a', 2, 'b', 'c', 1, 'v', 0};
    const Bytes profile{0x00, 0x01, 1, 0, 2};
    const Bytes application = descriptor(0x00, concat({{10}, profile, {0x80, 0x02, 1, 1, 0, 0xE0, 0xFF, 0x01, 0x02}}));
    const Bytes nameItem{'p', 'o', 'r', 4, 'J', 'o', 'g', 'o'};
    const Bytes names = descriptor(0x01, concat({nameItem, {'e', 'n', 'g', 4, 'G', 'a', 'm', 'e'}}));
    const Bytes icon = descriptor(0x0B, {5, 'i', 'c', 'o', 'n', '/', 0x81, 0x48});
    const Bytes authItem{0x00, 0x00, 0x12, 0xAB, 0x40, 0x00, 5};
    const Bytes authorisation = descriptor(0x05, concat({authItem, {0x00, 0x00, 0x00, 0x10, 0x00, 0x01, 9}}));
    const Bytes signalling = descriptor(0x11, {0x12, 0x34, 0x56});
    const Bytes prefetchItem{4, 'm', 'a', 'i', 'n', 0x80};
    const Bytes prefetch = descriptor(0x0C, concat({{0x07}, prefetchItem, {3, 'l', 'i', 'b', 0x10}}));
    const Bytes diiItem{0x80, 0x01, 0x00, 0x40};
    const Bytes dii = descriptor(0x0D, concat({{0x01}, diiItem, {0x00, 0x02, 0x00, 0x41}}));
    const Bytes javaParameters = descriptor(0x03, {3, 'a', '=', '1', 0, 2, '-', 'v'});
    const Bytes nclParameters = descriptor(0x06, {3, 'x', '=', '1'});
    const Bytes javaLocation = descriptor(0x04, {1, '/', 3, 'l', 'i', 'b', 'M', 'a', 'i', 'n'});
    const Bytes nclLocation = descriptor(0x07, {0, 0, 'm', 'a', 'i', 'n', '.', 'n', 'c', 'l'});
    const Bytes ncl = applicationEntry(0x12AB, 0x4000, 1, concat({application, descriptor(0x01, nameItem), nclLocation}));
    const Bytes java = applicationEntry(
        0x10, 0x0001, 2,
        concat({names, descriptor(0x42, {0xFF}), javaLocation, javaParameters, ip, icon, prefetch, dii}));
    const Bytes common = concat({carousel, nclParameters, authorisation, signalling, descriptor(0x42, {})});
    const Bytes section =
        SectionBuilder(0x74).longHeader(0x0009, 3).loop(common).loop(concat({ncl, java})).build();
    return {
        // Application information table
        {"TAITTable", section},
        {"TAITTable", SectionBuilder(0x74).longHeader(0x0001, 4).loop(javaLocation).loop(java).build()},
        {"TAITTable/copies", section},
        {"TApplication", java},
        {"TApplication", ncl},
        {"TApplicationIdentifier", {0x00, 0x00, 0x12, 0xAB, 0x40, 0x00}},
        // Application descriptors
        {"TApplicationDescriptor", application},
        {"TApplicationDescriptor/copy", application},
        {"TApplicationDescriptorProfile", profile},
        {"TApplicationNameDescriptor", names},
        {"TApplicationNameDescriptor/copy", names},
        {"TApplicationNameDescriptorItem", nameItem},
        {"TApplicationIconDescriptor", icon},
        {"TApplicationIconDescriptor/copy", concat({descriptor(0x0B, {1, 'x'}), {0x00, 0x80}})},
        {"TExternalApplicationAuthorizationDescriptor", authorisation},
        {"TExternalApplicationAuthorizationDescriptor/copy", authorisation},
        {"TExternalApplicationAuthorizationDescriptorItem", authItem},
        {"TIPSignalingDescriptor/copy", signalling},
        {"TPrefetchDescriptor", prefetch},
        {"TPrefetchDescriptor/copy", prefetch},
        {"TPrefetchDescriptorItem", prefetchItem},
        {"TDIILocationDescriptor/copy", dii},
        {"TDIILocationDescriptorItem", diiItem},
        {"TGingaJavaApplicationDescriptor/copy", javaParameters},
        {"TGingaNCLApplicationDescriptor", nclParameters},
        {"TGingaJavaApplicationLocationDescriptor/copy", javaLocation},
        {"TGingaNCLApplicationLocationDescriptor", nclLocation},
        {"TGingaNCLApplicationLocationDescriptor/within", {0x07, 4, 3, 'a', 'b', 'c', 0, 'x'}},
        {"TGingaApplicationLocationDescriptor::parseData", {1, '/', 3, 'l', 'i', 'b', 'M', 'a', 'i', 'n'}},
        // Transport protocol descriptors
        {"TTransportProtocolDescriptor", carousel},
        {"TTransportProtocolDescriptor", ip},
        {"TTransportProtocolDescriptor/clone", remoteCarousel},
        {"TTransportProtocolDescriptor/clone", ip},
        {"TTransportProtocolDescriptor/clone", descriptor(0x02, {0x00, 0x04, 0x04, 0x00, 0x42})},
        {"TTransportProtocolDescriptorIP::parseData", Bytes(ip.begin() + 2, ip.end())},
        {"TTransportProtocolDescriptorIC::parseData", interactive},
        {"TTransportProtocolDescriptorPC::parseData", {0x00, 0x05, 0x03, 0x00, 0x44}},
        {"TTransportProtocolDescriptorOC::parseData", {0x00, 0x01, 0x07, 0x80, 0x06, 0x40, 0x06, 0x41, 0x00, 0x01, 0x21}},
        {"TTransportProtocolDescriptorDC::parseData", {0x00, 0x04, 0x08, 0x00, 0x31}},
    };
}

} // namespace VuroFuzz
