#include <gtest/gtest.h>

#include <descriptors/TDigitalCopyControlDescriptor.h>

#include "DescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

using Result = Parsed<TDigitalCopyControlDescriptor>;
using Item = TDigitalCopyControlDescriptorItem;

std::string lengthLine(const std::string& cls, unsigned count, unsigned required)
{
    return "ISDBTUtils: " + cls + "::parse: Longer data length is required: " + std::to_string(count) + " < " +
           std::to_string(required) + ". Aborting!";
}
const std::string kDescriptorShort = lengthLine("TDigitalCopyControlDescriptor", 0, 1);
const std::string kItemShort = lengthLine("TDigitalCopyControlDescriptorItem", 0, 1);
const std::string kItemZero =
    "ISDBTUtils: TDigitalCopyControlDescriptorItem::parse: Item length not valid: 0. Aborting!";
const std::string kInvalidItem = "ISDBTUtils: TDigitalCopyControlDescriptor::parse: Invalid item. Aborting!";

} // namespace

TEST(DigitalCopyControlDescriptor, FlagsBitrateAndComponentEntries)
{
    LogCapture log;
    Result r({0x8D}); // recording control 2, copy control type 3, APS 1
    ASSERT_TRUE(r.decoded(1u));
    EXPECT_EQ(r.object->getDigitalRecordingControlData(), 2);
    EXPECT_EQ(r.object->getCopyControlType(), TDigitalCopyControlDescriptor::COPY_CONTROL_SD_FREE);
    EXPECT_EQ(r.object->getAPSControlData(), 1);
    EXPECT_EQ(r.object->hasMaximumBitrate(), FALSE);
    EXPECT_EQ(r.object->size(), 0u);

    Result free({0x03}); // type 0: APS is not taken
    EXPECT_EQ(free.object->getCopyControlType(), TDigitalCopyControlDescriptor::COPY_CONTROL_FREE);
    EXPECT_EQ(free.object->getAPSControlData(), 0);
    EXPECT_NO_LOG(log);

    // Bitrate 0x80; component_control_length 3 walked as a 2-byte entry with
    // bitrate 0x40, then a 1-byte entry.
    Result full({0x76, 0x80, 0x03, 0xE4, 0x40, 0x0E});
    ASSERT_TRUE(full.decoded(6u));
    EXPECT_EQ(full.object->getDigitalRecordingControlData(), 1);
    EXPECT_EQ(full.object->hasMaximumBitrate(), TRUE);
    EXPECT_EQ(full.object->hasComponentControl(), TRUE);
    EXPECT_EQ(full.object->getCopyControlType(), TDigitalCopyControlDescriptor::COPY_CONTROL_SD_FREE_ORIGINAL_ONCE);
    EXPECT_EQ(full.object->getAPSControlData(), 2);
    EXPECT_EQ(full.object->getMaximumBitrate(), 0x80);
    ASSERT_EQ(full.object->size(), 2u);
    Item* first = full.object->get(0);
    EXPECT_EQ(first->getDigitalRecordingControlData(), 3);
    EXPECT_EQ(first->hasMaximumBitrate(), TRUE);
    EXPECT_EQ(first->getMaximumBitrate(), 0x40);
    EXPECT_EQ(full.object->get(1)->getCopyControlType(), 3);
    EXPECT_EQ(full.object->get(1)->getAPSControlData(), 2);
    EXPECT_EQ(full.object->get(2), nullptr);
    EXPECT_EQ(full.object->remove(2), FALSE);
    EXPECT_EQ(full.object->remove(0), TRUE);
    EXPECT_EQ(full.object->get(0)->getCopyControlType(), 3);

    // One broadcast entry: component_tag 0x00, flags 0x8C. No component tag
    // is read: the tag byte is taken as an entry of its own and the flags
    // byte as a second one.
    Result untagged({0x10, 0x02, 0x00, 0x8C});
    ASSERT_TRUE(untagged.decoded(4u));
    ASSERT_EQ(untagged.object->size(), 2u);
    EXPECT_EQ(untagged.object->get(0)->getComponentTag(), 0);
    EXPECT_EQ(untagged.object->get(0)->getCopyControlType(), 0);
    EXPECT_EQ(untagged.object->get(1)->getComponentTag(), 0);
    EXPECT_EQ(untagged.object->get(1)->getDigitalRecordingControlData(), 2);
    EXPECT_EQ(untagged.object->get(1)->getCopyControlType(), 3);
}

TEST(DigitalCopyControlDescriptor, Failures)
{
    struct Case {
        Bytes whole;
        U32 length; // 0: the whole buffer
        std::vector<std::string> lines;
    };
    const Case cases[] = {
        // Announced bitrate or component_control_length missing.
        {descriptor(0xC1, {0x20}), 0, {kDescriptorShort}},
        {descriptor(0xC1, {0x10}), 0, {kDescriptorShort}},
        {descriptor(0xC1, {0x30, 0x80}), 0, {kDescriptorShort}},
        {descriptor(0xC1, {0x10, 0x03, 0x00, 0x00}), 0, {lengthLine("TDigitalCopyControlDescriptor", 2, 1)}},
        // The entry announces a bitrate but the descriptor ends.
        {descriptor(0xC1, {0x10, 0x01, 0x20}), 0, {kItemShort, kInvalidItem}},
        // component_control_length 1, but the entry takes 2 bytes: the 8-bit
        // count wraps and the next entry finds no byte left.
        {descriptor(0xC1, {0x10, 0x01, 0x20, 0x40}), 0, {kItemZero, kInvalidItem}},
        // descriptor_length 5 with three entries announced; the section ends
        // after the first entry.
        {{0xC1, 0x05, 0x10, 0x03, 0x8C}, 7, {kItemZero, kInvalidItem}},
        // The bitrate lies past the end of the section.
        {{0xC1, 0x02, 0x20}, 4, {kDescriptorShort}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(::testing::PrintToString(c.whole));
        expectRefusedWithin<TDigitalCopyControlDescriptor>(c.whole, c.length, kDescriptorLength, c.lines);
    }
}

TEST(DigitalCopyControlDescriptorItem, ParsesFlagsAndBitrate)
{
    LogCapture log;
    ExactBuffer data({0xE4, 0x40});
    U32 length = 0;
    U16 code = 0xBEEF;
    std::unique_ptr<Item> item(Item::parse(data.data(), data.size(), &length, &code));
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(code, kOk);
    EXPECT_EQ(length, 2u);
    EXPECT_EQ(item->getComponentTag(), 0);
    EXPECT_EQ(item->getDigitalRecordingControlData(), 3);
    EXPECT_EQ(item->getCopyControlType(), 1);
    EXPECT_EQ(item->getAPSControlData(), 0);
    EXPECT_EQ(item->getMaximumBitrate(), 0x40);

    EXPECT_EQ(Item::parse(data.data(), 0, &length, &code), nullptr);
    EXPECT_EQ(code, kDataLength);
    EXPECT_EQ(Item::parse(data.data(), 1, &length, &code), nullptr);
    EXPECT_EQ(code, kDescriptorLength);
    // Two bytes claimed but only one in the buffer: the entry's own code.
    EXPECT_EQ(Item::parse(data.data(), 2, &length, &code, data.data() + 1), nullptr);
    EXPECT_EQ(code, kDataLength);
    EXPECT_WARNINGS(log, kItemZero, kItemShort, kItemShort);
}
