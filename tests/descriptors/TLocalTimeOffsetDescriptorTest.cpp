#include <gtest/gtest.h>

#include <descriptors/TLocalTimeOffsetDescriptor.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

// country_code, country_region_id (6) reserved (1) polarity (1), offset hhmm,
// time_of_change (MJD 0xE4F0 00:00:00), next_time_offset 02:00.
Bytes region(const char* country, U8 regionId, U8 polarity, U8 hours, U8 minutes)
{
    return {static_cast<U8>(country[0]), static_cast<U8>(country[1]), static_cast<U8>(country[2]),
            static_cast<U8>((regionId << 2) | 0x02 | polarity), hours, minutes, 0xE4, 0xF0, 0, 0, 0, 0x02, 0x00};
}

const char* const kItemLine = "ISDBTUtils: TLocalTimeOffsetDescriptorItem::parse: Descriptor length not valid: ";
const char* const kDescriptorLine = "ISDBTUtils: TLocalTimeOffsetDescriptor::parse: Descriptor length not valid: ";

} // namespace

TEST(LocalTimeOffsetDescriptor, DecodesRegionsKeyedByCountryTheLaterWinning)
{
    LogCapture log;
    ExactBuffer data(descriptor(0x58, concat({region("BRA", 1, 1, 0x03, 0x00), region("ARG", 0, 0, 0x03, 0x30),
                                              region("BRA", 63, 1, 0x12, 0x00)})));
    U32 parsed = 99;
    U16 code = 0xBEEF;
    TLocalTimeOffsetDescriptor* d = TLocalTimeOffsetDescriptor::parse(data.data(), data.size(), &parsed, &code);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(parsed, 13u); // the last item's length
    EXPECT_EQ(d->getDataLength(), data.size() - 2); // recorded without its header
    EXPECT_EQ(d->getCountryCodes(), (std::list<std::string>{"ARG", "BRA"}));
    // 03:30 weighs the minutes' tens digit in place: 3 x 3600 + 480 x 60.
    EXPECT_EQ(d->get("ARG")->getLocalTimeOffset(), 39600);
    EXPECT_EQ(d->get("ARG")->getLocalTimeOffsetPolarity(), 0);
    TLocalTimeOffsetDescriptorItem* brazil = d->get("BRA");
    EXPECT_STREQ(brazil->getCountryCode(), "BRA");
    EXPECT_EQ(brazil->getCountryRegionID(), 63);
    EXPECT_EQ(brazil->getLocalTimeOffsetPolarity(), 1);
    EXPECT_EQ(brazil->getLocalTimeOffset(), (162 * 3600) % 65536); // 12:00: hours count 162, kept to 16 bits
    EXPECT_NO_LOG(log);
    delete d;
}

TEST(LocalTimeOffsetDescriptor, CallersItemsAndAFreshItem)
{
    TLocalTimeOffsetDescriptorItem fresh;
    EXPECT_STREQ(fresh.getCountryCode(), "");
    EXPECT_EQ(fresh.getLocalTimeOffsetPolarity(), 1);

    ExactBuffer data(descriptor(0x58, region("BRA", 1, 1, 0x02, 0x00)));
    TLocalTimeOffsetDescriptor* d = TLocalTimeOffsetDescriptor::parse(data.data(), data.size(), nullptr, nullptr);
    ASSERT_NE(d, nullptr);
    ExactBuffer more(region("BRA", 5, 1, 0x03, 0x00));
    TLocalTimeOffsetDescriptorItem* original = d->get("BRA");
    d->add(TLocalTimeOffsetDescriptorItem::parse(more.data(), 13, nullptr, nullptr));
    EXPECT_EQ(d->get("BRA")->getCountryRegionID(), 5);
    delete original; // displaced by the caller's add, not deleted by it
    EXPECT_EQ(d->remove("ARG"), FALSE);
    EXPECT_EQ(d->remove("BRA"), TRUE);
    EXPECT_EQ(d->size(), 0u);
    delete d;
}

TEST(LocalTimeOffsetDescriptor, ShortItemsFailWithTheBytesLeft)
{
    LogCapture log;
    Bytes twelve = region("BRA", 1, 1, 0x03, 0x00);
    twelve.pop_back();
    ExactBuffer data(descriptor(0x58, twelve));
    U16 code = 0;
    EXPECT_EQ(TLocalTimeOffsetDescriptor::parse(data.data(), data.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log, kItemLine + std::string("12. Aborting!"), kDescriptorLine + std::string("12. Aborting!"));

    EXPECT_EQ(TLocalTimeOffsetDescriptorItem::parse(data.data() + 2, 12, nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);

    // descriptor_length claims two items, the section ends after the first.
    log.clear();
    Bytes cut = descriptor(0x58, concat({region("BRA", 1, 1, 0x03, 0x00), region("ARG", 1, 1, 0x03, 0x00)}));
    cut.resize(17);
    ExactBuffer section(cut);
    EXPECT_EQ(TLocalTimeOffsetDescriptor::parse(section.data(), 28, nullptr, &code, section.data() + 17), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log, kItemLine + std::string("13. Aborting!"), kDescriptorLine + std::string("13. Aborting!"));
}
