// Descriptors handed a descriptor_length that runs past the buffer they sit in
// (the bounded parse, limit = the buffer's end): each stops at the buffer's
// end with its class's length code and line, never reading past it. One case
// per fault the fuzz campaign found.
#include <gtest/gtest.h>

#include <descriptors/TApplicationDescriptor.h>
#include <descriptors/TApplicationIconDescriptor.h>
#include <descriptors/TBouquetNameDescriptor.h>
#include <descriptors/TComponentDescriptor.h>
#include <descriptors/TCountryAvailabilityDescriptor.h>
#include <descriptors/TDIILocationDescriptor.h>
#include <descriptors/TGingaNCLApplicationDescriptor.h>
#include <descriptors/TGingaNCLApplicationLocationDescriptor.h>
#include <descriptors/TIPSignalingDescriptor.h>
#include <descriptors/TMosaicDescriptor.h>
#include <descriptors/TPrefetchDescriptor.h>
#include <descriptors/TServiceDescriptor.h>
#include <descriptors/TTimeShiftedServiceDescriptor.h>

#include "DescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

// The first `kept` bytes of a whole descriptor in an exact buffer, handed
// with the whole descriptor's length.
template <class D>
void expectStopsAt(const Bytes& whole, std::size_t kept, U16 code, const std::vector<std::string>& lines)
{
    SCOPED_TRACE(kept);
    expectRefusedWithin<D>(Bytes(whole.begin(), whole.begin() + kept), static_cast<U32>(whole.size()), code, lines);
}

} // namespace

TEST(OuterBuffer, ServiceDescriptor)
{
    const Bytes service = descriptor(0x48, {0x01, 5, 'G', 'l', 'o', 'b', 'o', 2, 'T', 'V'});
    const std::string line = "ISDBTUtils: TServiceDescriptor::parse: Longer data length is required: ";
    // Only the tag byte is left: the header check refuses it for its length.
    expectStopsAt<TServiceDescriptor>(service, 1, kDescriptorLength,
                                      {kHeaderLine + "(2) Longer data length is required: 1 < 5. Aborting!"});
    expectStopsAt<TServiceDescriptor>(service, 2, kDescriptorLength, {line + "2 < 3. Aborting!"});
    expectStopsAt<TServiceDescriptor>(service, 3, kDescriptorLength, {line + "0 < 1. Aborting!"});
    expectStopsAt<TServiceDescriptor>(service, 5, kDescriptorLength, {line + "2 < 6. Aborting!"});
    expectStopsAt<TServiceDescriptor>(service, 10, kDescriptorLength, {line + "1 < 3. Aborting!"});
}

TEST(OuterBuffer, ApplicationDescriptors)
{
    // One profile, flags, priority and one transport protocol label.
    const Bytes application = descriptor(0x00, {5, 0x00, 0x01, 1, 0, 0, 0x80, 0x05, 0x01});
    const std::string exceeded = "ISDBTUtils: TApplicationDescriptor:: parse: Section length exceeded. Aborting!";
    for (std::size_t kept : {2u, 9u, 10u})
        expectStopsAt<TApplicationDescriptor>(application, kept, kDataLength, {exceeded});

    // The icon locator's length byte, then its characters, past the end.
    const Bytes icon = descriptor(TApplicationIconDescriptor::DESCRIPTOR_TAG, {3, 'i', '/', 'a', 0x00, 0x01});
    for (std::size_t kept : {2u, 4u})
        expectStopsAt<TApplicationIconDescriptor>(icon, kept, kDescriptorLength, {});

    // Ginga parameters: the second one passes the end; the class has no
    // length line.
    const Bytes ginga = descriptor(TGingaNCLApplicationDescriptor::DESCRIPTOR_TAG, {3, 'a', 'b', 'c', 2, 'x', 'y'});
    expectStopsAt<TGingaNCLApplicationDescriptor>(ginga, 6, kDescriptorLength, {});
    expectStopsAt<TGingaNCLApplicationDescriptor>(ginga, 8, kDescriptorLength, {});
}

TEST(OuterBuffer, ComponentAndCountryAvailability)
{
    // Stream content, component type and tag, "por", text "HD": each part
    // that passes the end stops the parse (neither class has a length line).
    const Bytes component = descriptor(0x50, {0x01, 0x03, 0x10, 'p', 'o', 'r', 'H', 'D'});
    for (std::size_t kept : {4u, 7u, 9u})
        expectStopsAt<TComponentDescriptor>(component, kept, kDescriptorLength, {});
    const Bytes country = descriptor(0x49, {0x80, 'B', 'R', 'A'});
    for (std::size_t kept : {2u, 5u})
        expectStopsAt<TCountryAvailabilityDescriptor>(country, kept, kDescriptorLength, {});
}

// Fixed fields and a whole-body name past the end; none of these classes has
// a length line.
TEST(OuterBuffer, FixedBodiesWithoutALengthLine)
{
    expectStopsAt<TTimeShiftedServiceDescriptor>(descriptor(0x4C, {0xE5, 0x80}), 3, kDescriptorLength, {});
    expectStopsAt<TIPSignalingDescriptor>(descriptor(TIPSignalingDescriptor::DESCRIPTOR_TAG, {0x00, 0x00, 0x01}), 4,
                                          kDescriptorLength, {});
    expectStopsAt<TBouquetNameDescriptor>(descriptor(0x47, {'B', 'o', 'u', 'q'}), 5, kDescriptorLength, {});
    expectStopsAt<TMosaicDescriptor>(descriptor(0x51, {0x90}), 2, kDescriptorLength, {});
    // The transport_protocol_label byte that precedes the items.
    expectStopsAt<TPrefetchDescriptor>(descriptor(0x0C, {0x07, 1, 'a', 0x10}), 2, kDescriptorLength, {});
    expectStopsAt<TDIILocationDescriptor>(descriptor(0x0D, {0x01, 0x80, 0x01, 0x00, 0x40}), 2, kDescriptorLength,
                                          {});
}

TEST(OuterBuffer, GingaApplicationLocation)
{
    // base_directory "ab", classpath_extension "c", initial class "main".
    const Bytes location = descriptor(TGingaNCLApplicationLocationDescriptor::DESCRIPTOR_TAG,
                                      {2, 'a', 'b', 1, 'c', 'm', 'a', 'i', 'n'});
    const std::string line =
        "ISDBTUtils: TGingaApplicationLocationDescriptor::parse: Longer data length is required: ";
    expectStopsAt<TGingaNCLApplicationLocationDescriptor>(location, 2, kDescriptorLength, {line + "0 < 1. Aborting!"});
    expectStopsAt<TGingaNCLApplicationLocationDescriptor>(location, 4, kDescriptorLength, {line + "1 < 2. Aborting!"});
    expectStopsAt<TGingaNCLApplicationLocationDescriptor>(location, 9, kDescriptorLength, {line + "2 < 4. Aborting!"});
}
