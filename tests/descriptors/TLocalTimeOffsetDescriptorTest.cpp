#include <gtest/gtest.h>

#include <descriptors/TLocalTimeOffsetDescriptor.h>

#include "DescriptorTestSupport.h"

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

const std::string kItemLine = "ISDBTUtils: TLocalTimeOffsetDescriptorItem::parse: Descriptor length not valid: ";
const std::string kDescriptorLine = "ISDBTUtils: TLocalTimeOffsetDescriptor::parse: Descriptor length not valid: ";

} // namespace

TEST(LocalTimeOffsetDescriptor, DecodesRegionsKeyedByCountryAddAndRemove)
{
    LogCapture log;
    Parsed<TLocalTimeOffsetDescriptor> r(
        concat({region("BRA", 1, 1, 0x03, 0x00), region("ARG", 0, 0, 0x03, 0x30), region("BRA", 63, 1, 0x12, 0x00)}));
    ASSERT_TRUE(r.decoded(13u)); // the last item's length
    TLocalTimeOffsetDescriptor* d = r.object.get();
    EXPECT_EQ(d->getDataLength(), r.data.size() - 2); // recorded without its header
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

    // A fresh item, and the caller's items.
    TLocalTimeOffsetDescriptorItem fresh;
    EXPECT_STREQ(fresh.getCountryCode(), "");
    EXPECT_EQ(fresh.getLocalTimeOffsetPolarity(), 1);

    Parsed<TLocalTimeOffsetDescriptor> own(region("BRA", 1, 1, 0x02, 0x00));
    TLocalTimeOffsetDescriptor* list = own.object.get();
    ASSERT_NE(list, nullptr);
    ExactBuffer more(region("BRA", 5, 1, 0x03, 0x00));
    TLocalTimeOffsetDescriptorItem* original = list->get("BRA");
    list->add(TLocalTimeOffsetDescriptorItem::parse(more.data(), 13, nullptr, nullptr));
    EXPECT_EQ(list->get("BRA")->getCountryRegionID(), 5);
    delete original; // displaced by the caller's add, not deleted by it
    EXPECT_EQ(list->remove("ARG"), FALSE);
    EXPECT_EQ(list->remove("BRA"), TRUE);
    EXPECT_EQ(list->size(), 0u);
}

TEST(LocalTimeOffsetDescriptor, ShortItemsFailWithTheBytesLeft)
{
    Bytes twelve = region("BRA", 1, 1, 0x03, 0x00);
    twelve.pop_back();
    expectRefused<TLocalTimeOffsetDescriptor>(twelve, kDescriptorLength,
                                              {kItemLine + "12. Aborting!", kDescriptorLine + "12. Aborting!"});
    LogCapture log;
    ExactBuffer item(twelve);
    U16 code = 0;
    EXPECT_EQ(TLocalTimeOffsetDescriptorItem::parse(item.data(), 12, nullptr, &code), nullptr);
    EXPECT_EQ(code, kDataLength);
    EXPECT_WARNINGS(log, kItemLine + "12. Aborting!");

    // descriptor_length claims two items, the section ends after the first.
    Bytes cut = descriptor(0x58, concat({region("BRA", 1, 1, 0x03, 0x00), region("ARG", 1, 1, 0x03, 0x00)}));
    cut.resize(17);
    expectRefusedWithin<TLocalTimeOffsetDescriptor>(cut, 28, kDescriptorLength,
                                                    {kItemLine + "13. Aborting!", kDescriptorLine + "13. Aborting!"});
}
