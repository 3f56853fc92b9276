#include <gtest/gtest.h>

#include <memory>

#include <sdt/TSDTTable.h>

#include "../support/LogCapture.h"
#include "../support/RefusalExpect.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

// service_id, reserved + EIT flags, running_status (3) + free_CA_mode (1) +
// 12-bit descriptors_loop_length, descriptors.
Bytes service(U16 id, U8 eitFlags, U8 status, const Bytes& descriptors)
{
    return concat({{static_cast<U8>(id >> 8), static_cast<U8>(id), static_cast<U8>(0xFC | eitFlags),
                    static_cast<U8>(status | (descriptors.size() >> 8)), static_cast<U8>(descriptors.size())},
                   descriptors});
}

Bytes sdt(const Bytes& services, U8 tableId = 0x42)
{
    return SectionBuilder(tableId).longHeader(0x0640, 1).u16(0x0641).u8(0xFF).bytes(services).build();
}

std::unique_ptr<TSDTTable> parse(ExactBuffer& data, U16* code, BOOL parseDescriptors = TRUE)
{
    return std::unique_ptr<TSDTTable>(
        TSDTTable::parse(data.data(), data.size(), parseDescriptors, TRUE, code, nullptr));
}

::testing::AssertionResult verdict(bool parsed, U16 code, U16 expected)
{
    if (parsed || code != expected)
        return ::testing::AssertionFailure() << (parsed ? "parsed" : "refused") << " with code " << code;
    return ::testing::AssertionSuccess();
}

// The section is refused with the given code.
::testing::AssertionResult refused(const Bytes& bytes, U16 expected)
{
    return refusedBy([](ExactBuffer& data, U16* code) { return parse(data, code); }, bytes, expected);
}

// The service entry is refused with the given code; handed dataLength bytes
// (when not 0) by a section whose count goes past the buffer.
::testing::AssertionResult serviceRefused(const Bytes& bytes, U16 expected, U32 dataLength = 0)
{
    ExactBuffer data(bytes);
    U16 code = 0;
    U8* end = data.data() + data.size();
    std::unique_ptr<TServiceDescription> entry(
        dataLength ? TServiceDescription::parse(data.data(), dataLength, TRUE, nullptr, &code, end)
                   : TServiceDescription::parse(data.data(), data.size(), TRUE, nullptr, &code));
    return verdict(entry != nullptr, code, expected);
}

std::string serviceLength(const std::string& sizes)
{
    return "ISDBTUtils: TServiceDescription::parse: Item length not valid: " + sizes + ". Aborting!";
}

const std::string kUnknown4D = "ISDBTUtils: TServiceDescription::parse: Unknown descriptor: 0x4D. Ignored!";
const std::string kShortTable = "ISDBTUtils: TISDBTTable::parse: Longer data length is required: 2 < 3. Aborting!";
const std::string kHeader = "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (2) Longer data length is required: ";

// A header announcing section_length 5: the 16-bit body count wraps, and the
// section goes on with rest.
Bytes wrappedBody(const Bytes& rest) { return concat({{0x42, 0xF0, 0x05, 0x06, 0x40, 0xC3, 0x00, 0x00}, rest}); }

} // namespace

TEST(SDTTable, ThreeServicesReadBackInAscendingOrder)
{
    LogCapture log;
    const Bytes names = descriptor(0x48, {0x01, 4, 'V', 'u', 'R', 'O', 7, 'V', 'u', 'R', 'O', ' ', 'H', 'D'});
    ExactBuffer data(sdt(concat(
        {service(0xE598, 0x01, 0x80,
                 concat({names, descriptor(0x42, {0xFF}), descriptor(0xC1, {0x26, 0x50}), descriptor(0xDE, {0xF7}),
                         descriptor(0x4D, {'p', 'o', 'r', 0x00, 0x00})})),
         service(0xE580, 0x02, 0x30, concat({descriptor(0x53, {0x05, 0x20}), descriptor(0x4C, {0xE5, 0x98})})),
         service(0xE5B8, 0x00, 0x00, {})})));
    U16 code = 0xBEEF;
    // parseDescriptors FALSE has no effect.
    std::unique_ptr<TSDTTable> table = parse(data, &code, FALSE);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(table->getTransportStreamID(), 0x0640);
    EXPECT_EQ(table->getOriginalNetworkID(), 0x0641);
    EXPECT_EQ(table->size(), 3u);
    EXPECT_EQ(table->getServiceIDs(), (std::list<U16>{0xE580, 0xE598, 0xE5B8}));

    TServiceDescription* full = table->getServiceDescription(0xE598);
    EXPECT_EQ(full->hasEITSchedule(), FALSE);
    EXPECT_EQ(full->hasEITPresentFollowing(), TRUE);
    EXPECT_EQ(full->getRunningStatus(), TServiceDescription::RUNNING_STATUS_RUNNING);
    EXPECT_EQ(full->getFreeCAMode(), TServiceDescription::FREE_CA_MODE_NOT_SCRAMBLED);
    EXPECT_EQ(full->getDescriptorTags(), (std::list<U8>{0x48, 0xC1, 0xDE}));
    EXPECT_EQ(full->getServiceDescriptor()->getServiceProviderName(), "VuRO");
    EXPECT_EQ(full->getServiceDescriptor()->getServiceName(), "VuRO HD");
    EXPECT_EQ(full->getDigitalCopyControlDescriptor()->getMaximumBitrate(), 0x50);
    EXPECT_EQ(full->getContentAvailabilityDescriptor()->getRetentionState(), 3);
    EXPECT_EQ(full->getDescriptor(0xC1), full->getDigitalCopyControlDescriptor());
    EXPECT_EQ(full->getDescriptor(0x4D), nullptr);
    for (TISDBTDescriptor* empty : {static_cast<TISDBTDescriptor*>(full->getBouquetNameDescriptor()),
                                    static_cast<TISDBTDescriptor*>(full->getCountryAvailabilityDescriptor()),
                                    static_cast<TISDBTDescriptor*>(full->getLinkageDescriptor()),
                                    static_cast<TISDBTDescriptor*>(full->getNVODReferenceDescriptor()),
                                    static_cast<TISDBTDescriptor*>(full->getMosaicDescriptor()),
                                    static_cast<TISDBTDescriptor*>(full->getLogoTransmissionDescriptor())})
        EXPECT_EQ(empty, nullptr);
    // The descriptors borrow the table's own copy of the section.
    const U8* borrowed = full->getServiceDescriptor()->getData();
    EXPECT_TRUE(borrowed > table->getData() && borrowed < table->getData() + table->getDataLength());

    TServiceDescription* second = table->getServiceDescription(0xE580);
    EXPECT_EQ(second->hasEITSchedule(), TRUE);
    EXPECT_EQ(second->getRunningStatus(), TServiceDescription::RUNNING_STATUS_NOT_RUNNING);
    EXPECT_EQ(second->getFreeCAMode(), TServiceDescription::FREE_CA_MODE_CA_SYSTEM);
    EXPECT_EQ(second->getDescriptorTags(), (std::list<U8>{0x4C, 0x53}));
    EXPECT_EQ(second->getTimeShiftedServiceDescriptor()->getReferenceServiceID(), 0xE598);
    EXPECT_EQ(second->getCAIdentifierDescriptor()->getCASystemIDs()[0], 0x0520);
    EXPECT_TRUE(table->getServiceDescription(0xE5B8)->getDescriptorTags().empty());
    EXPECT_EQ(table->getServiceDescription(0xE599), nullptr);
    EXPECT_WARNINGS(log, kUnknown4D);
}

TEST(SDTTable, RepeatsKeepTheLaterCallersAddWithoutDeletingAndAnEmptyBody)
{
    ExactBuffer data(sdt(concat({service(0x0101, 0, 0x40, {}), service(0x0010, 0, 0, {}),
                                 service(0x0101, 0, 0x60, concat({descriptor(0x47, {'A'}), descriptor(0x47, {'B'})}))})));
    std::unique_ptr<TSDTTable> table = parse(data, nullptr);
    ASSERT_NE(table, nullptr);
    TServiceDescription* later = table->getServiceDescription(0x0101);
    EXPECT_EQ(later->getRunningStatus(), TServiceDescription::RUNNING_STATUS_PAUSING);
    EXPECT_EQ(later->getBouquetNameDescriptor()->getBouquetName(), "B");

    ExactBuffer extra(service(0x0101, 0, 0x20, {}));
    TServiceDescription* added = TServiceDescription::parse(extra.data(), extra.size(), TRUE, nullptr, nullptr);
    table->addServiceDescription(added);
    EXPECT_EQ(table->getServiceDescription(0x0101), added);
    delete later; // displaced, still the caller's
    EXPECT_EQ(table->removeServiceDescription(0x0102), FALSE);
    EXPECT_EQ(table->removeServiceDescription(0x0010), TRUE);
    EXPECT_EQ(table->getServiceIDs(), (std::list<U16>{0x0101}));

    LogCapture log;
    ExactBuffer empty(sdt({}));
    table = parse(empty, nullptr);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->size(), 0u);
    EXPECT_EQ(table->getOriginalNetworkID(), 0x0641);
    EXPECT_NO_LOG(log);
}

TEST(SDTTable, RefusedSections)
{
    LogCapture log;
    const U16 length = TISDBTTable::ERROR_INVALID_DATA_LENGTH, item = TISDBTTable::ERROR_INVALID_ITEM;
    EXPECT_TRUE(refused(sdt({}, 0x46), TISDBTTable::ERROR_INVALID_TABLE_ID));
    EXPECT_TRUE(refused({0x42, 0xF0}, length));
    EXPECT_TRUE(refused(sdt(concat({service(0x0101, 0, 0x80, {}), {0x01, 0x02, 0xFD}})), item));
    // An empty known descriptor goes to its parser, which refuses it.
    EXPECT_TRUE(refused(sdt(service(0x0101, 0, 0x80, descriptor(0x48, {}))), item));
    // Wrapped body count: no original_network_id; one service fits and the
    // count asks for another at the end; a descriptor past the data.
    EXPECT_TRUE(refused(wrappedBody({0x06, 0x40}), length));
    EXPECT_TRUE(refused(wrappedBody(concat({{0x06, 0x40, 0xFF}, service(0x0101, 0, 0x80, {})})), item));
    EXPECT_TRUE(refused(wrappedBody({0x06, 0x40, 0xFF, 0x01, 0x02, 0xFD, 0x80, 0x0C, 0x48, 0x0A, 0x01, 0x00}), item));
    const std::string badItem = "ISDBTUtils: TSDTTable::parse: Invalid item. Aborting!";
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTTable::parse: Unexpected table ID. Got 0x46, instead of 0x42. Aborting!",
                    kShortTable, serviceLength("3"), badItem, kHeader + "2 < 5. Aborting!", badItem, kShortTable,
                    serviceLength("0"), badItem, serviceLength("10 > 2"), badItem);
}

TEST(ServiceDescription, Byte0x9FAndAFullLoopOfStuffing)
{
    LogCapture log;
    // Running status 4, free CA 1, descriptors_loop_length 0xF00: fifteen
    // 256-byte stuffing descriptors, skipped silently.
    Bytes data{0x05, 0x40, 0xFE, 0x9F, 0x00};
    for (int i = 0; i < 15; ++i)
        data = concat({data, descriptor(0x42, Bytes(254, 0xFF))});
    ExactBuffer exact(data);
    U32 length = 0;
    TServiceDescription* entry = TServiceDescription::parse(exact.data(), exact.size(), FALSE, &length, nullptr);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(length, 5u + 0xF00);
    EXPECT_EQ(entry->getServiceID(), 0x0540);
    EXPECT_EQ(entry->getRunningStatus(), 4);
    EXPECT_EQ(entry->getFreeCAMode(), 1);
    EXPECT_NO_LOG(log);
    delete entry;
}

TEST(ServiceDescription, LengthFailuresAndTheOuterLimit)
{
    LogCapture log;
    const U16 length = TISDBTTable::ERROR_INVALID_DATA_LENGTH;
    EXPECT_TRUE(serviceRefused({0x01, 0x01, 0xFF, 0x80, 0x03, 0x42, 0x00}, length));
    // A failing descriptor leaves its own code and adds no line of the service's.
    EXPECT_TRUE(serviceRefused(service(0x0101, 0, 0x80, descriptor(0xDE, {})),
                               TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH));

    // The section count says 0x100 bytes remain; the buffer ends after the
    // descriptor header. An unknown descriptor closing the loop is skipped
    // without reading its body; a known one must lie inside the buffer.
    ExactBuffer unknownPast({0x01, 0x01, 0xFF, 0x80, 0x22, 0x4D, 0x20});
    U32 itemLength = 0;
    std::unique_ptr<TServiceDescription> entry(TServiceDescription::parse(
        unknownPast.data(), 0x100, TRUE, &itemLength, nullptr, unknownPast.data() + unknownPast.size()));
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(itemLength, 5u + 0x22);
    EXPECT_TRUE(serviceRefused({0x01, 0x01, 0xFF, 0x80, 0x22, 0x48, 0x20}, length, 0x100));
    // With one section byte left the unsigned check passes any length (1 - 2
    // wraps); the wrapped loop count walks on until a header lies past the buffer.
    EXPECT_TRUE(serviceRefused({0x01, 0x01, 0xFF, 0x80, 0x01, 0x4D, 0x01, 0x00, 0x42, 0x01, 0x00}, length, 9));
    EXPECT_WARNINGS(log, serviceLength("3 > 2"), kHeader + "2 < 3. Aborting!", kUnknown4D, serviceLength("32 > 0"),
                    kUnknown4D, serviceLength("2 > 0"));
}
