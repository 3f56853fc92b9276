#include <gtest/gtest.h>

#include <descriptors/TDigitalCopyControlDescriptor.h>

#include <cstdio>
#include <string>

#include "../support/LogCapture.h"
#include "StreamDescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

using Result = Parsed<TDigitalCopyControlDescriptor>;

const char* const kLengthLine =
    "ISDBTUtils: TDigitalCopyControlDescriptor::parse: Longer data length is required: %u < %u. Aborting!";

std::string lengthLine(unsigned count, unsigned required)
{
    char text[160];
    std::snprintf(text, sizeof text, kLengthLine, count, required);
    return text;
}

} // namespace

TEST(DigitalCopyControlDescriptor, FlagsOnly)
{
    LogCapture log;
    Result r({0x8D}); // recording control 2, copy control type 3, APS 1
    ASSERT_NE(r.object, nullptr);
    EXPECT_EQ(r.code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(r.parsedLength, 1u);
    EXPECT_EQ(r.object->getDigitalRecordingControlData(), 2);
    EXPECT_EQ(r.object->getCopyControlType(), TDigitalCopyControlDescriptor::COPY_CONTROL_SD_FREE);
    EXPECT_EQ(r.object->getAPSControlData(), 1);
    EXPECT_EQ(r.object->hasMaximumBitrate(), FALSE);
    EXPECT_EQ(r.object->size(), 0u);

    Result free({0x03}); // type 0: APS is not taken
    EXPECT_EQ(free.object->getCopyControlType(), TDigitalCopyControlDescriptor::COPY_CONTROL_FREE);
    EXPECT_EQ(free.object->getAPSControlData(), 0);
    EXPECT_NO_LOG(log);
}

TEST(DigitalCopyControlDescriptor, BitrateAndComponentEntries)
{
    // Bitrate 0x80; component_control_length 3 walked as a 2-byte entry with
    // bitrate 0x40, then a 1-byte entry.
    Result r({0x76, 0x80, 0x03, 0xE4, 0x40, 0x0E});
    ASSERT_NE(r.object, nullptr);
    EXPECT_EQ(r.parsedLength, 6u);
    EXPECT_EQ(r.object->getDigitalRecordingControlData(), 1);
    EXPECT_EQ(r.object->hasMaximumBitrate(), TRUE);
    EXPECT_EQ(r.object->hasComponentControl(), TRUE);
    EXPECT_EQ(r.object->getCopyControlType(), TDigitalCopyControlDescriptor::COPY_CONTROL_SD_FREE_ORIGINAL_ONCE);
    EXPECT_EQ(r.object->getAPSControlData(), 2);
    EXPECT_EQ(r.object->getMaximumBitrate(), 0x80);
    ASSERT_EQ(r.object->size(), 2u);
    TDigitalCopyControlDescriptorItem* first = r.object->get(0);
    EXPECT_EQ(first->getDigitalRecordingControlData(), 3);
    EXPECT_EQ(first->hasMaximumBitrate(), TRUE);
    EXPECT_EQ(first->getMaximumBitrate(), 0x40);
    EXPECT_EQ(r.object->get(1)->getCopyControlType(), 3);
    EXPECT_EQ(r.object->get(1)->getAPSControlData(), 2);
    EXPECT_EQ(r.object->get(2), nullptr);
    EXPECT_EQ(r.object->remove(2), FALSE);
    EXPECT_EQ(r.object->remove(0), TRUE);
    EXPECT_EQ(r.object->get(0)->getCopyControlType(), 3);
}

TEST(DigitalCopyControlDescriptor, EntriesReadNoComponentTag)
{
    // One broadcast entry: component_tag 0x00, flags 0x8C. The tag byte is
    // taken as an entry of its own and the flags byte as a second one.
    Result r({0x10, 0x02, 0x00, 0x8C});
    ASSERT_NE(r.object, nullptr);
    EXPECT_EQ(r.parsedLength, 4u);
    ASSERT_EQ(r.object->size(), 2u);
    EXPECT_EQ(r.object->get(0)->getComponentTag(), 0);
    EXPECT_EQ(r.object->get(0)->getCopyControlType(), 0);
    EXPECT_EQ(r.object->get(1)->getComponentTag(), 0);
    EXPECT_EQ(r.object->get(1)->getDigitalRecordingControlData(), 2);
    EXPECT_EQ(r.object->get(1)->getCopyControlType(), 3);
}

TEST(DigitalCopyControlDescriptor, LengthFailures)
{
    LogCapture log;
    for (const Bytes& body : {Bytes{0x20}, Bytes{0x10}, Bytes{0x30, 0x80}, Bytes{0x10, 0x03, 0x00, 0x00}}) {
        Result r(body);
        EXPECT_EQ(r.object, nullptr);
        EXPECT_EQ(r.code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    }
    EXPECT_WARNINGS(log, lengthLine(0, 1), lengthLine(0, 1), lengthLine(0, 1), lengthLine(2, 1));
}

TEST(DigitalCopyControlDescriptor, FailingEntry)
{
    LogCapture log;
    // The entry announces a bitrate but the descriptor ends.
    Result r({0x10, 0x01, 0x20});
    EXPECT_EQ(r.object, nullptr);
    EXPECT_EQ(r.code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log,
                    "ISDBTUtils: TDigitalCopyControlDescriptorItem::parse: Longer data length is required: 0 < 1. "
                    "Aborting!",
                    "ISDBTUtils: TDigitalCopyControlDescriptor::parse: Invalid item. Aborting!");
}

TEST(DigitalCopyControlDescriptor, CountSteppedOverWrapsAndFailsAtTheDescriptorEnd)
{
    LogCapture log;
    // component_control_length 1, but the entry takes 2 bytes: the 8-bit
    // count wraps and the next entry finds no byte left.
    Result r({0x10, 0x01, 0x20, 0x40});
    EXPECT_EQ(r.object, nullptr);
    EXPECT_EQ(r.code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log,
                    "ISDBTUtils: TDigitalCopyControlDescriptorItem::parse: Item length not valid: 0. Aborting!",
                    "ISDBTUtils: TDigitalCopyControlDescriptor::parse: Invalid item. Aborting!");
}

TEST(DigitalCopyControlDescriptor, EntriesStopAtTheEndOfTheOutermostBuffer)
{
    LogCapture log;
    // descriptor_length 5 with three entries announced; the section ends
    // after the first entry.
    ExactBuffer data({0xC1, 0x05, 0x10, 0x03, 0x8C});
    U16 code = 0;
    EXPECT_EQ(TDigitalCopyControlDescriptor::parse(data.data(), 7, nullptr, &code, data.data() + data.size()),
              nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log,
                    "ISDBTUtils: TDigitalCopyControlDescriptorItem::parse: Item length not valid: 0. Aborting!",
                    "ISDBTUtils: TDigitalCopyControlDescriptor::parse: Invalid item. Aborting!");
    log.clear();
    ExactBuffer bitrate({0xC1, 0x02, 0x20});
    EXPECT_EQ(TDigitalCopyControlDescriptor::parse(bitrate.data(), 4, nullptr, &code, bitrate.data() + 3), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log, lengthLine(0, 1));
}

TEST(DigitalCopyControlDescriptorItem, ParsesFlagsAndBitrate)
{
    LogCapture log;
    ExactBuffer data({0xE4, 0x40});
    U32 length = 0;
    U16 code = 0xBEEF;
    std::unique_ptr<TDigitalCopyControlDescriptorItem> item(
        TDigitalCopyControlDescriptorItem::parse(data.data(), data.size(), &length, &code));
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(length, 2u);
    EXPECT_EQ(item->getComponentTag(), 0);
    EXPECT_EQ(item->getDigitalRecordingControlData(), 3);
    EXPECT_EQ(item->getCopyControlType(), 1);
    EXPECT_EQ(item->getAPSControlData(), 0);
    EXPECT_EQ(item->getMaximumBitrate(), 0x40);

    EXPECT_EQ(TDigitalCopyControlDescriptorItem::parse(data.data(), 0, &length, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    EXPECT_EQ(TDigitalCopyControlDescriptorItem::parse(data.data(), 1, &length, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    // Two bytes claimed but only one in the buffer: the entry's own code.
    EXPECT_EQ(TDigitalCopyControlDescriptorItem::parse(data.data(), 2, &length, &code, data.data() + 1), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    EXPECT_WARNINGS(log,
                    "ISDBTUtils: TDigitalCopyControlDescriptorItem::parse: Item length not valid: 0. Aborting!",
                    "ISDBTUtils: TDigitalCopyControlDescriptorItem::parse: Longer data length is required: 0 < 1. "
                    "Aborting!",
                    "ISDBTUtils: TDigitalCopyControlDescriptorItem::parse: Longer data length is required: 0 < 1. "
                    "Aborting!");
}
