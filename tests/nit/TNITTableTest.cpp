#include <gtest/gtest.h>

#include <nit/TNITTable.h>

#include "../support/LogCapture.h"
#include "NitBytes.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

TNITTable* parse(ExactBuffer& data, U16* code, TNITTable* previous = nullptr)
{
    return TNITTable::parse(data.data(), data.size(), TRUE, TRUE, code, previous);
}

const Bytes kServiceList = descriptor(0x41, {0xE5, 0x80, 0x01, 0xE5, 0x98, 0xC0});
// Remote key 5, "Vuro HD", layer A with the one-seg service, layer B with the full-seg one.
const Bytes kTSInformation = descriptor(0xCD, {0x05, (7 << 2) | 2, 'V', 'u', 'r', 'o', ' ', 'H', 'D', 0x0F, 0x01,
                                               0xE5, 0x98, 0x40, 0x01, 0xE5, 0x80});
// Area code 0x123, guard interval 1/16, mode 1, two frequencies.
const Bytes kTerrestrial = descriptor(0xFA, {0x12, 0x34, 0x0B, 0xC2, 0x0E, 0x9E});
const Bytes kPartialReception = descriptor(0xFB, {0xE5, 0x98});

// A section whose header announces section_length 5 (less than the long
// header and the CRC_32): the 16-bit body count wraps to 65532, and the
// section goes on with the given bytes.
ExactBuffer wrappedBody(const Bytes& rest)
{
    return ExactBuffer(concat({{0x40, 0xF0, 0x05, 0x06, 0x40, 0xC3, 0x00, 0x00}, rest}));
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
    const Bytes streams =
        concat({streamEntry(0x0640, 0x0640, concat({kServiceList, kTSInformation, kTerrestrial, kPartialReception})),
                streamEntry(0x0002, 0x0640, concat({descriptor(0x40, {}), descriptor(0x43, {0x00}),
                                                    descriptor(0xCD, {0x07, 6 << 2, 'R', 'e', 'd', 'e', ' ', '2'})}))});
    ExactBuffer data(nitSection(0x0640, network, streams, 7));
    U16 code = 0xBEEF;
    TNITTable* table = parse(data, &code);
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
    delete table;
}

TEST(NITTable, EmptyLoopsAndTheOtherNetworkTable)
{
    LogCapture log;
    ExactBuffer empty(nitSection(0x1234, {}, {}, 3));
    TNITTable* table = parse(empty, nullptr);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->getNetworkID(), 0x1234);
    EXPECT_TRUE(table->getDescriptorTags().empty());
    EXPECT_EQ(table->getTransportStreamLoopSize(), 0u);
    EXPECT_NO_LOG(log);
    delete table;

    ExactBuffer otherNetwork(SectionBuilder(0x41).longHeader(0x1234, 3).loop({}).loop({}).build());
    U16 code = 0;
    EXPECT_EQ(parse(otherNetwork, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_TABLE_ID);
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTTable::parse: Unexpected table ID. Got 0x41, instead of 0x40. Aborting!");
}

TEST(NITTable, RepeatedDescriptorsAndEntriesKeepTheLater)
{
    ExactBuffer data(nitSection(
        1, concat({descriptor(0x40, {'A'}), descriptor(0x40, {'B', 'C'})}),
        concat({streamEntry(0x0010, 1, kPartialReception), streamEntry(0x0002, 1, {}), streamEntry(0x0100, 1, {}),
                streamEntry(0x0010, 2, {})})));
    TNITTable* table = parse(data, nullptr);
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
    delete table;
}

TEST(NITTable, NetworkLoopFailures)
{
    LogCapture log;
    U16 code = 0;
    // An empty known descriptor goes to its parser and fails the table.
    ExactBuffer emptyName(nitSection(1, descriptor(0x40, {}), {}));
    EXPECT_EQ(parse(emptyName, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);

    ExactBuffer loopTooLong(SectionBuilder(0x40).longHeader(1, 0).u16(0xF00A).build());
    EXPECT_EQ(parse(loopTooLong, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);

    ExactBuffer descriptorTooLong(
        SectionBuilder(0x40).longHeader(1, 0).u16(0xF004).bytes({0x40, 0x05, 'a', 'b'}).u16(0xF000).build());
    EXPECT_EQ(parse(descriptorTooLong, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (2) Longer data length is required: 2 < 3. "
                         "Aborting!",
                    "ISDBTUtils: TNITTable::parse: Item length not valid: 10 > 0. Aborting!",
                    "ISDBTUtils: TNITTable::parse: Item length not valid: 5 > 4. Aborting!");

    log.clear();
    // One byte left before the CRC_32: compared as signed, every descriptor
    // length exceeds the -1 bytes available.
    const Bytes oneLeft = SectionBuilder(0x40).longHeader(1, 0).u16(0xF001).u8(0x40).build();
    ExactBuffer signedCheck(oneLeft);
    EXPECT_EQ(parse(signedCheck, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TNITTable::parse: Item length not valid: " +
                             std::to_string(oneLeft[oneLeft.size() - 4]) + " > 4294967295. Aborting!");
}

TEST(NITTable, TransportStreamLoopFailures)
{
    LogCapture log;
    U16 code = 0;
    ExactBuffer loopTooLong(SectionBuilder(0x40).longHeader(1, 0).u16(0xF000).u16(0xF007).build());
    EXPECT_EQ(parse(loopTooLong, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);

    // A failing entry: its own line and code, then the table's.
    ExactBuffer badEntry(nitSection(1, {}, {0x00, 0x01, 0x00, 0x01, 0xF0, 0x01}));
    EXPECT_EQ(parse(badEntry, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_ITEM);

    ExactBuffer badDescriptor(nitSection(1, {}, streamEntry(1, 1, descriptor(0xCD, {0x01, 0x00}))));
    EXPECT_EQ(parse(badDescriptor, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_ITEM);
    EXPECT_WARNINGS(log, "ISDBTUtils: TNITTable::parse: Item length not valid: 7 > 0. Aborting!",
                    "ISDBTUtils: TNITTransportStreamInfo::parse: Item length not valid: 1 > 0. Aborting!",
                    "ISDBTUtils: TNITTable::parse: Invalid item. Aborting!",
                    "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (2) Longer data length is required: 4 < 10. "
                    "Aborting!",
                    "ISDBTUtils: TNITTable::parse: Invalid item. Aborting!");
}

TEST(NITTable, WrappedBodyCountStopsAtTheEndOfTheBuffer)
{
    LogCapture log;
    U16 code = 0;
    // The network loop length field itself lies past the data.
    ExactBuffer noLoop(wrappedBody({}));
    EXPECT_EQ(parse(noLoop, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);

    // A network descriptor that would end past the data.
    ExactBuffer descriptorPast(wrappedBody({0xF0, 0x05, 0x40, 0x05, 'a', 'b'}));
    EXPECT_EQ(parse(descriptorPast, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);

    // A transport-stream descriptor that would end past the data.
    ExactBuffer entryPast(wrappedBody({0xF0, 0x00, 0xF0, 0x08, 0x06, 0x40, 0x06, 0x40, 0xF0, 0x03, 0x40, 0x01}));
    EXPECT_EQ(parse(entryPast, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_ITEM);
    EXPECT_WARNINGS(log, "ISDBTUtils: TNITTable::parse: Item length not valid: 2 > 0. Aborting!",
                    "ISDBTUtils: TNITTable::parse: Item length not valid: 5 > 2. Aborting!",
                    "ISDBTUtils: TNITTransportStreamInfo::parse: Item length not valid: 1 > 0. Aborting!",
                    "ISDBTUtils: TNITTable::parse: Invalid item. Aborting!");
}
