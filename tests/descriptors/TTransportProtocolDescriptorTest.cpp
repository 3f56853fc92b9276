#include <gtest/gtest.h>

#include <descriptors/TTransportProtocolDescriptorDC.h>
#include <descriptors/TTransportProtocolDescriptorIC.h>
#include <descriptors/TTransportProtocolDescriptorIP.h>
#include <descriptors/TTransportProtocolDescriptorOC.h>
#include <descriptors/TTransportProtocolDescriptorPC.h>

#include "DescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

using TP = TTransportProtocolDescriptor;

// protocol_id, transport_protocol_label, selector.
Bytes transport(U16 protocol, U8 label, const Bytes& selector)
{
    return concat({{static_cast<U8>(protocol >> 8), static_cast<U8>(protocol), label}, selector});
}

std::string lengthLine(const std::string& variant, U32 value)
{
    return "ISDBTUtils: TTransportProtocolDescriptor" + variant + "::parse: Item length not valid: " +
           std::to_string(value) + ". Aborting!";
}

// A variant object filled through its parseData from the selector bytes.
template <class V>
std::unique_ptr<V> filled(ExactBuffer& data, U16* code = nullptr, U32* read = nullptr)
{
    std::unique_ptr<V> object(new V(data.data(), data.size()));
    if (!object->parseData(data.data(), data.size(), read, code))
        return nullptr;
    return object;
}

// A transport protocol kind the library does not know, for clone.
class DataPipingDescriptor : public TP {
public:
    DataPipingDescriptor() : TP(DataPiping, 9, nullptr, 0) {}
    BOOL parseData(U8*, U32, U32*, U16*) override { return FALSE; }
};

} // namespace

TEST(TransportProtocolDescriptor, ObjectCarouselSelectors)
{
    LogCapture log;
    // Local carousel: component_tag right after the flag byte; private bytes ignored.
    Parsed<TP> local(transport(1, 0x07, {0x7F, 0x40, 0xAA}));
    ASSERT_TRUE(local.decoded(5u));
    auto* oc = dynamic_cast<TTransportProtocolDescriptorOC*>(local.object.get());
    ASSERT_NE(oc, nullptr);
    EXPECT_EQ(oc->getType(), TP::ObjectCarousel);
    EXPECT_EQ(oc->getProtocolID(), 1);
    EXPECT_EQ(oc->getTransportProtocolLabel(), 0x07);
    EXPECT_FALSE(oc->isRemoteConnection());
    EXPECT_EQ(oc->getComponentTag(), 0x40);
    EXPECT_EQ(oc->getOriginalNetworkID() | oc->getTransportStreamID() | oc->getServiceID(), 0);

    // Remote: the triplet, then component_tag.
    Parsed<TP> remote(transport(1, 0x01, {0x80, 0x06, 0x40, 0x06, 0x41, 0xE7, 0x60, 0x12}));
    ASSERT_TRUE(remote.decoded(11u));
    oc = dynamic_cast<TTransportProtocolDescriptorOC*>(remote.object.get());
    ASSERT_NE(oc, nullptr);
    EXPECT_TRUE(oc->isRemoteConnection());
    EXPECT_EQ(oc->getOriginalNetworkID(), 0x0640);
    EXPECT_EQ(oc->getTransportStreamID(), 0x0641);
    EXPECT_EQ(oc->getServiceID(), 0xE760);
    EXPECT_EQ(oc->getComponentTag(), 0x12);

    // Profile C is read as an object carousel reporting protocol 1.
    Parsed<TP> profileC(transport(5, 0x02, {0x00, 0x41}));
    ASSERT_TRUE(profileC.decoded(5u));
    EXPECT_NE(dynamic_cast<TTransportProtocolDescriptorOC*>(profileC.object.get()), nullptr);
    EXPECT_EQ(profileC.object->getType(), TP::ObjectCarousel);
    EXPECT_EQ(profileC.object->getProtocolID(), 1);

    Parsed<TP> dataCarousel(transport(4, 0x03, {0x00, 0x42}));
    ASSERT_TRUE(dataCarousel.decoded(5u));
    auto* dc = dynamic_cast<TTransportProtocolDescriptorDC*>(dataCarousel.object.get());
    ASSERT_NE(dc, nullptr);
    EXPECT_EQ(dc->getType(), TP::DataCarousel);
    EXPECT_EQ(dc->getProtocolID(), 4);
    EXPECT_EQ(dc->getComponentTag(), 0x42);
    EXPECT_NO_LOG(log);
}

TEST(TransportProtocolDescriptor, Refusals)
{
    // A remote selector of descriptor_length 10 has 6 bytes after the first four.
    expectRefused<TP>(transport(1, 0, {0x80, 0, 0, 0, 0, 0, 0}), kDataLength, {lengthLine("OC", 6)});
    expectRefused<TP>(transport(4, 0, {0x00}), kDataLength, {lengthLine("DC", 4)});
    expectRefused<TP>(transport(2, 0, {0x80, 1, 2, 3, 4, 5}), kDataLength, {lengthLine("IP", 5)});
    // Data piping and any other unknown protocol: the line, and the header
    // check's ERROR_OK left in place.
    expectRefused<TP>(transport(9, 0, {0x00, 0x40}), kOk,
                      {"ISDBTUtils: TTransportProtocolDescriptor::parse: Unknown protocol ID: 0x0009. Aborting!"});
    // The interactive channel is refused silently.
    expectRefused<TP>(transport(3, 0, {0x00, 0x40}), kOk, {});
    expectRefused<TP>({0x00, 0x01}, kDescriptorLength,
                      {kHeaderLine + "(2) Longer data length is required: 4 < 5. Aborting!"});
    expectRefusedWithin<TP>({0x02, 0x02, 0x00, 0x01, 0x00}, 5, kDescriptorLength,
                            {kHeaderLine + "(5) Longer descriptor length is required: 2 < 3. Aborting!"});
}

// A descriptor whose descriptor_length runs past the buffer it sits in is
// read up to the buffer's end and no further.
TEST(TransportProtocolDescriptor, SelectorsStopAtTheEndOfTheBuffer)
{
    const auto cut = [](const Bytes& whole, std::size_t drop) { return Bytes(whole.begin(), whole.end() - drop); };
    // The protocol_id itself past the end: no line, the descriptor length code.
    expectRefusedWithin<TP>({0x02, 0x05, 0x00}, 7, kDescriptorLength, {});
    // A remote object carousel selector cut after 6 of its 11 bytes.
    const Bytes carousel = descriptor(0x02, transport(1, 0, {0x80, 0, 1, 0, 2, 0, 3, 0x04}));
    expectRefusedWithin<TP>(cut(carousel, 5), static_cast<U32>(carousel.size()), kDataLength,
                            {lengthLine("OC", 6)});
    // An IP URL whose characters pass the end (6 bytes left at its length byte).
    const Bytes ip = descriptor(0x02, transport(2, 0, {0x00, 0x80, 8, 'h', 't', 't', 'p', ':', '/', '/', 'x'}));
    expectRefusedWithin<TP>(cut(ip, 3), static_cast<U32>(ip.size()), kDataLength, {lengthLine("IP", 6)});
    // Whole in the buffer, the same bytes decode.
    Parsed<TP> whole(ip, static_cast<U32>(ip.size()));
    EXPECT_TRUE(whole.decoded(14u));
}

TEST(TransportProtocolDescriptor, IPSelectorWithURLs)
{
    LogCapture log;
    Parsed<TP> r(transport(2, 0x05, concat({{0x80, 0x06, 0x40, 0x06, 0x41, 0x00, 0x01, 0x80},
                                            {3, 'a', '.', 'b'},
                                            {8, 'h', 't', 't', 'p', ':', '/', '/', 'x'}})));
    ASSERT_TRUE(r.decoded(24u));
    auto* ip = dynamic_cast<TTransportProtocolDescriptorIP*>(r.object.get());
    ASSERT_NE(ip, nullptr);
    EXPECT_EQ(ip->getType(), TP::IP);
    EXPECT_EQ(ip->getProtocolID(), 2);
    EXPECT_TRUE(ip->isRemoteConnection());
    EXPECT_EQ(ip->getServiceID(), 0x0001);
    EXPECT_TRUE(ip->isAligned());
    ASSERT_EQ(ip->getURLCount(), 2u);
    EXPECT_EQ(ip->getURL(0), "a.b");
    EXPECT_EQ(ip->getURL(1), "http://x");
    EXPECT_EQ(ip->getURL(2), "");
    EXPECT_FALSE(ip->removeURL(2));
    EXPECT_TRUE(ip->removeURL(0));
    EXPECT_EQ(ip->getURL(0), "http://x");
    EXPECT_NO_LOG(log);

    // A URL longer than what remains: the string reader's line, then the
    // name item's line the IP selector has always logged.
    expectRefused<TP>(transport(2, 0, {0x00, 0x00, 4, 'a'}), kString,
                      {kStringLine + "4 > 1. Aborting!",
                       "ISDBTUtils: TApplicationNameDescriptorItem:: parse: ERROR: parsing Name. Aborting!"});

    TTransportProtocolDescriptorIP byHand("http://ginga/app");
    EXPECT_EQ(byHand.getData(), nullptr);
    EXPECT_EQ(byHand.getTransportProtocolLabel(), 0);
    EXPECT_FALSE(byHand.isRemoteConnection() || byHand.isAligned());
    ASSERT_EQ(byHand.getURLCount(), 1u);
    EXPECT_EQ(byHand.getURL(0), "http://ginga/app");
}

TEST(TransportProtocolDescriptor, InteractiveChannelSelectorThroughParseData)
{
    LogCapture log;
    ExactBuffer data(transport(3, 0x09, {3, 'u', 'r', 'l', 2, 1, 'a', 2, 'b', 'c', 1, 'v', 0}));
    U16 code = 0xBEEF;
    U32 read = 0;
    auto ic = filled<TTransportProtocolDescriptorIC>(data, &code, &read);
    ASSERT_NE(ic, nullptr);
    EXPECT_EQ(code, kOk);
    EXPECT_EQ(read, 3u); // only the fixed bytes are reported
    EXPECT_EQ(ic->getType(), TP::DataCarousel);
    EXPECT_EQ(ic->getProtocolID(), 4);
    EXPECT_EQ(ic->getTransportProtocolLabel(), 0x09);
    ASSERT_EQ(ic->getURLCount(), 2u);
    EXPECT_EQ(ic->getURLBase(0), "url");
    ASSERT_EQ(ic->getURLExtensionCount(0), 2u);
    EXPECT_EQ(ic->getURLExtension(0, 1), "bc");
    EXPECT_EQ(ic->getURLBase(1), "v");
    EXPECT_EQ(ic->getURLExtensionCount(1), 0u);
    EXPECT_EQ(ic->getURLBase(2), "");
    EXPECT_EQ(ic->getURLExtension(0, 2), "");
    EXPECT_NO_LOG(log);

    const auto refusedWith = [](const Bytes& bytes, U16 expected, const std::vector<std::string>& lines) {
        LogCapture capture;
        ExactBuffer buffer(bytes);
        U16 got = 0;
        EXPECT_EQ(filled<TTransportProtocolDescriptorIC>(buffer, &got), nullptr);
        EXPECT_EQ(got, expected);
        EXPECT_WARNINGS(capture, lines);
    };
    refusedWith({0x00, 0x03}, kDataLength, {lengthLine("IC", 2)});
    refusedWith(transport(3, 0, {5, 'u'}), kString,
                {kStringLine + "5 > 1. Aborting!",
                 "ISDBTUtils: TTransportProtocolDescriptorIC::parse: ERROR: parsing URL Base. Aborting!"});
    refusedWith(transport(3, 0, {1, 'u', 1, 3, 'e'}), kString,
                {kStringLine + "3 > 1. Aborting!",
                 "ISDBTUtils: TTransportProtocolDescriptorIC::parse: ERROR: parsing URL Extension. Aborting!"});
    // A base that ends the data leaves no URL_extension_count to read.
    refusedWith(transport(3, 0, {1, 'u'}), kDataLength, {lengthLine("IC", 0)});
}

TEST(TransportProtocolDescriptor, CloneChoosesTheClassByType)
{
    LogCapture log;
    Parsed<TP> oc(transport(1, 0x07, {0x80, 0x06, 0x40, 0x06, 0x41, 0xE7, 0x60, 0x12}));
    ASSERT_NE(oc.object, nullptr);
    std::unique_ptr<TP> ocCopy(TP::clone(oc.object.get()));
    auto* ocClone = dynamic_cast<TTransportProtocolDescriptorOC*>(ocCopy.get());
    ASSERT_NE(ocClone, nullptr);
    EXPECT_EQ(ocClone->getData(), nullptr);
    EXPECT_EQ(ocClone->getTransportProtocolLabel(), 0x07);
    EXPECT_EQ(ocClone->getServiceID(), 0xE760);
    EXPECT_EQ(ocClone->getComponentTag(), 0x12);

    // A profile-C object reports protocol 5; its copy and its clone (an OC) report 1.
    ExactBuffer pcBytes(transport(5, 0x03, {0x00, 0x44}));
    auto pc = filled<TTransportProtocolDescriptorPC>(pcBytes);
    ASSERT_NE(pc, nullptr);
    EXPECT_EQ(pc->getType(), TP::ObjectCarousel);
    EXPECT_EQ(pc->getProtocolID(), 5);
    TTransportProtocolDescriptorPC pcCopy(pc.get());
    EXPECT_EQ(pcCopy.getProtocolID(), 1);
    EXPECT_EQ(pcCopy.getComponentTag(), 0x44);
    std::unique_ptr<TP> pcClone(TP::clone(pc.get()));
    ASSERT_NE(dynamic_cast<TTransportProtocolDescriptorOC*>(pcClone.get()), nullptr);
    EXPECT_EQ(pcClone->getProtocolID(), 1);
    EXPECT_EQ(static_cast<TTransportProtocolDescriptorOC*>(pcClone.get())->getComponentTag(), 0x44);

    Parsed<TP> dc(transport(4, 0x04, {0x00, 0x45}));
    std::unique_ptr<TP> dcClone(TP::clone(dc.object.get()));
    ASSERT_NE(dynamic_cast<TTransportProtocolDescriptorDC*>(dcClone.get()), nullptr);
    EXPECT_EQ(static_cast<TTransportProtocolDescriptorDC*>(dcClone.get())->getComponentTag(), 0x45);

    std::unique_ptr<TP> ipClone;
    {
        Parsed<TP> ip(transport(2, 0x05, {0x00, 0x00, 1, 'u'}));
        ipClone.reset(TP::clone(ip.object.get()));
    }
    auto* ipCopy = dynamic_cast<TTransportProtocolDescriptorIP*>(ipClone.get());
    ASSERT_NE(ipCopy, nullptr);
    EXPECT_EQ(ipCopy->getTransportProtocolLabel(), 0x05);
    EXPECT_EQ(ipCopy->getURL(0), "u"); // read after the source and its bytes are gone

    // An interactive-channel object has the data carousel type: it clones as
    // a DC object with no carousel fields.
    ExactBuffer icBytes(transport(3, 0x06, {1, 'u', 0}));
    auto ic = filled<TTransportProtocolDescriptorIC>(icBytes);
    ASSERT_NE(ic, nullptr);
    std::unique_ptr<TP> icClone(TP::clone(ic.get()));
    auto* icAsDC = dynamic_cast<TTransportProtocolDescriptorDC*>(icClone.get());
    ASSERT_NE(icAsDC, nullptr);
    EXPECT_EQ(icAsDC->getTransportProtocolLabel(), 0x06);
    EXPECT_EQ(icAsDC->getComponentTag(), 0);
    TTransportProtocolDescriptorIC icCopy(ic.get());
    EXPECT_EQ(icCopy.getURLBase(0), "u");
    EXPECT_NO_LOG(log);

    DataPipingDescriptor piping;
    EXPECT_EQ(TP::clone(&piping), nullptr);
    EXPECT_EQ(TP::clone(nullptr), nullptr);
    EXPECT_WARNINGS(log, "ISDBTUtils: TTransportProtocolDescriptor::clone: Unknown protocol ID: 0x0009. Aborting!");
}
