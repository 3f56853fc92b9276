#include <gtest/gtest.h>

#include <memory>

#include <nit/TNITTable.h>

#include "../support/LogCapture.h"
#include "../support/RefusalExpect.h"
#include "NitBytes.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

std::unique_ptr<TNITTable> parse(ExactBuffer& data, U16* code)
{
    return std::unique_ptr<TNITTable>(TNITTable::parse(data.data(), data.size(), TRUE, TRUE, code, nullptr));
}

// The section is refused with the given code.
::testing::AssertionResult refused(const Bytes& bytes, U16 expected)
{
    return refusedBy([](ExactBuffer& data, U16* code) { return parse(data, code); }, bytes, expected);
}

const Bytes kPartialReception = descriptor(0xFB, {0xE5, 0x98});

// A section whose header announces section_length 5 (less than the long
// header and the CRC_32): the 16-bit body count wraps to 65532, and the
// section goes on with the given bytes.
Bytes wrappedBody(const Bytes& rest) { return concat({{0x40, 0xF0, 0x05, 0x06, 0x40, 0xC3, 0x00, 0x00}, rest}); }

std::string itemLength(const std::string& sizes)
{
    return "ISDBTUtils: TNITTable::parse: Item length not valid: " + sizes + ". Aborting!";
}

} // namespace

TEST(NITTable, NetworkAndTwoTransportStreams)
{
    LogCapture log;
    const Bytes network = concat({descriptor(0x4A, {0x06, 0x40, 0x06, 0x40, 0xE5, 0x80, 0x02}),
                                  descriptor(0x40, {'R', 'e', 'd', 'e', ' ', 'V', 'u', 'R', 'O'}),
                                  descriptor(0x43, {0x01, 0x02}), descriptor(0x42, {0xFF, 0xFF}),
                                  descriptor(0xFE, {0x03, 0x01}),
                                  descriptor(0xFC, {0xE5, 0x80, 0xC0, 0x02, 0x12, 0x30})});
    // Service list; area code 0x123, guard interval 1/16, mode 1, two frequencies; remote key 5, "Vuro HD",
    // layer A with the one-seg service, layer B with the full-seg one.
    const Bytes mainDescriptors = concat(
        {descriptor(0x41, {0xE5, 0x80, 0x01, 0xE5, 0x98, 0xC0}), descriptor(0xFA, {0x12, 0x34, 0x0B, 0xC2, 0x0E, 0x9E}),
         kPartialReception,
         descriptor(0xCD, {0x05, (7 << 2) | 2, 'V', 'u', 'r', 'o', ' ', 'H', 'D', 0x0F, 0x01, 0xE5, 0x98, 0x40, 0x01,
                           0xE5, 0x80})});
    const Bytes streams =
        concat({streamEntry(0x0640, 0x0640, mainDescriptors),
                streamEntry(0x0002, 0x0640, concat({descriptor(0x40, {}), descriptor(0x43, {0x00}),
                                                    descriptor(0xCD, {0x07, 6 << 2, 'R', 'e', 'd', 'e', ' ', '2'})}))});
    ExactBuffer data(nitSection(0x0640, network, streams, 7));
    U16 code = 0xBEEF;
    std::unique_ptr<TNITTable> table = parse(data, &code);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(table->getNetworkID(), 0x0640);

    // Network loop: unknown 0x43 logged once, stuffing silent.
    EXPECT_EQ(table->getDescriptorTags(), (std::list<U8>{0x40, 0xFE, 0x4A, 0xFC}));
    EXPECT_EQ(table->getNetworkNameDescriptor()->getNetworkName(), "Rede VuRO");
    EXPECT_EQ(table->getSystemManagementDescriptor()->getSystemManagementID(), 0x0301);
    EXPECT_EQ(table->getLinkageDescriptor()->getLinkageType(), TLinkageDescriptor::SERVICE_EPG);
    EXPECT_EQ(table->getEmergencyInformationDescriptor()->get(0)->getAreaCodes()[0], 0x123);
    EXPECT_EQ(table->getDescriptor(0xFE), table->getSystemManagementDescriptor());
    EXPECT_EQ(table->getDescriptor(0x41), nullptr);
    // The descriptors borrow the table's own copy of the section.
    const U8* name = table->getNetworkNameDescriptor()->getData();
    EXPECT_TRUE(name > table->getData() && name < table->getData() + table->getDataLength());

    ASSERT_EQ(table->getTransportStreamLoopSize(), 2u);
    EXPECT_EQ(table->getTransportStreamIDs(), (std::list<U16>{0x0002, 0x0640}));
    TTransportStreamInfo* main = table->getTransportStreamInfo(0x0640);
    ASSERT_NE(main, nullptr);
    EXPECT_EQ(main->getDescriptorTags(), (std::list<U8>{0x41, 0xFA, 0xFB, 0xCD}));
    TTerrestrialDeliverySystemDescriptor* delivery = main->getTerrestrialDeliverySystemDescriptor();
    EXPECT_EQ(delivery->getAreaCode(), 0x123);
    EXPECT_EQ(delivery->getGuardInterval(), TTerrestrialDeliverySystemDescriptor::GUARD_INTERNVAL_1_16);
    EXPECT_EQ(delivery->getTransmissionMode(), TTerrestrialDeliverySystemDescriptor::TRANSMISSION_MODE_1);
    EXPECT_EQ(main->getPartialReceptionDescriptor()->getServiceIDs()[0], 0xE598);
    TTSInformationDescriptor* info = main->getTSInformationDescriptor();
    EXPECT_EQ(info->getTransportStreamName(), "Vuro HD");
    EXPECT_EQ(main->getDescriptor(0xCD), info);
    TTransportStreamInfo* second = table->getTransportStreamInfo(0x0002);
    EXPECT_EQ(second->getDescriptorTags(), (std::list<U8>{0xCD}));
    EXPECT_EQ(second->getTSInformationDescriptor()->getRemoteControlKeyID(), 7);

    EXPECT_WARNINGS(log, "ISDBTUtils: TNITTable::parse: Unknown descriptor: 0x43. Ignored!");
}

TEST(NITTable, EmptyLoops)
{
    LogCapture log;
    ExactBuffer empty(nitSection(0x1234, {}, {}, 3));
    std::unique_ptr<TNITTable> table = parse(empty, nullptr);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->getNetworkID(), 0x1234);
    EXPECT_TRUE(table->getDescriptorTags().empty());
    EXPECT_EQ(table->getTransportStreamLoopSize(), 0u);
    EXPECT_NO_LOG(log);
}

TEST(NITTable, RepeatedDescriptorsAndEntriesKeepTheLater)
{
    ExactBuffer data(nitSection(
        1, concat({descriptor(0x40, {'A'}), descriptor(0x40, {'B', 'C'})}),
        concat({streamEntry(0x0010, 1, kPartialReception), streamEntry(0x0002, 1, {}), streamEntry(0x0100, 1, {}),
                streamEntry(0x0010, 2, {})})));
    std::unique_ptr<TNITTable> table = parse(data, nullptr);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->getNetworkNameDescriptor()->getNetworkName(), "BC");
    EXPECT_EQ(table->getTransportStreamIDs(), (std::list<U16>{2, 16, 256}));
    EXPECT_EQ(table->getTransportStreamInfo(0x0010)->getOriginalNetworkID(), 2);

    // A caller's add displaces without deleting; remove deletes.
    ExactBuffer extra(streamEntry(0x0100, 9, {}));
    TTransportStreamInfo* added = TTransportStreamInfo::parse(extra.data(), extra.size(), TRUE, nullptr, nullptr);
    TTransportStreamInfo* displaced = table->getTransportStreamInfo(0x0100);
    table->addTransportStreamInfo(added);
    table->addTransportStreamInfo(nullptr);
    EXPECT_EQ(table->getTransportStreamInfo(0x0100), added);
    EXPECT_EQ(table->getTransportStreamLoopSize(), 3u);
    delete displaced;
    EXPECT_EQ(table->removeTransportStreamInfo(0x0101), FALSE);
    EXPECT_EQ(table->getTransportStreamLoopSize(), 3u);
    EXPECT_EQ(table->removeTransportStreamInfo(0x0002), TRUE);
    EXPECT_EQ(table->getTransportStreamIDs(), (std::list<U16>{16, 256}));
}

TEST(NITTable, RefusedSections)
{
    LogCapture log;
    const U16 length = TISDBTTable::ERROR_INVALID_DATA_LENGTH, item = TISDBTTable::ERROR_INVALID_ITEM;
    EXPECT_TRUE(refused(SectionBuilder(0x41).longHeader(0x1234, 3).loop({}).loop({}).build(),
                        TISDBTTable::ERROR_INVALID_TABLE_ID));
    // An empty known descriptor goes to its parser and fails the table.
    EXPECT_TRUE(refused(nitSection(1, descriptor(0x40, {}), {}), TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH));
    EXPECT_TRUE(refused(SectionBuilder(0x40).longHeader(1, 0).u16(0xF00A).build(), length));
    EXPECT_TRUE(refused(
        SectionBuilder(0x40).longHeader(1, 0).u16(0xF004).bytes({0x40, 0x05, 'a', 'b'}).u16(0xF000).build(), length));
    // One byte left before the CRC_32: compared as signed, every descriptor
    // length exceeds the -1 bytes available.
    const Bytes oneLeft = SectionBuilder(0x40).longHeader(1, 0).u16(0xF001).u8(0x40).build();
    EXPECT_TRUE(refused(oneLeft, length));
    EXPECT_TRUE(refused(SectionBuilder(0x40).longHeader(1, 0).u16(0xF000).u16(0xF007).build(), length));
    // A failing entry: its own line and code, then the table's.
    EXPECT_TRUE(refused(nitSection(1, {}, {0x00, 0x01, 0x00, 0x01, 0xF0, 0x01}), item));
    EXPECT_TRUE(refused(nitSection(1, {}, streamEntry(1, 1, descriptor(0xCD, {0x01, 0x00}))), item));
    // Wrapped body count: the network loop length field itself, a network
    // descriptor, a transport-stream descriptor lying past the data.
    EXPECT_TRUE(refused(wrappedBody({}), length));
    EXPECT_TRUE(refused(wrappedBody({0xF0, 0x05, 0x40, 0x05, 'a', 'b'}), length));
    EXPECT_TRUE(refused(wrappedBody({0xF0, 0x00, 0xF0, 0x08, 0x06, 0x40, 0x06, 0x40, 0xF0, 0x03, 0x40, 0x01}), item));
    const std::string badItem = "ISDBTUtils: TNITTable::parse: Invalid item. Aborting!";
    const std::string badEntry = "ISDBTUtils: TNITTransportStreamInfo::parse: Item length not valid: 1 > 0. Aborting!";
    const std::string header = "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (2) Longer data length is required: ";
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTTable::parse: Unexpected table ID. Got 0x41, instead of 0x40. Aborting!",
                    header + "2 < 3. Aborting!", itemLength("10 > 0"), itemLength("5 > 4"),
                    itemLength(std::to_string(oneLeft[oneLeft.size() - 4]) + " > 4294967295"), itemLength("7 > 0"),
                    badEntry, badItem, header + "4 < 10. Aborting!", badItem, itemLength("2 > 0"),
                    itemLength("5 > 2"), badEntry, badItem);
}
