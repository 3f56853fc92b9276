#include <gtest/gtest.h>

#include <descriptors/TDownloadContentDescriptor.h>

#include "../sdtt/DownloadBytes.h"
#include "DescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

using Result = Parsed<TDownloadContentDescriptor>;
constexpr U16 kItem = TISDBTTable::ERROR_INVALID_ITEM;

const std::string kCopyTarget = "ISDBTUils: ParserUtils::parseByteArray: ERROR: Invalid data target. Aborting!";
const std::string kPortalLength = "ISDBTUtils: TAppPortalUpdate:: parse: ERROR_INVALID_DATA_LENGTH";
const std::string kNoAppIds = "ISDBTUtils: TAppPortalUpdate:: parse: No appId's to parse!";

std::string itemLine(const std::string& cls, unsigned length)
{
    return "ISDBTUtils: " + cls + "::parse: Item length not valid: " + std::to_string(length) + ". Aborting!";
}

// Lines of the given priority, in order.
void expectLines(const LogCapture& log, int priority, const std::vector<std::string>& texts)
{
    EXPECT_EQ(log.texts(), texts);
    for (const LogLine& line : log.lines())
        EXPECT_EQ(line.priority, priority) << line.text;
}

struct Portal {
    explicit Portal(const Bytes& bytes, U32 length) : data(bytes), object(TAppPortalUpdate::parse(data.data(), length, &code)) {}
    explicit Portal(const Bytes& bytes) : Portal(bytes, static_cast<U32>(bytes.size())) {}
    ExactBuffer data;
    U16 code = 0xBEEF;
    std::unique_ptr<TAppPortalUpdate> object;
};

// A compatibility part with two entries: model 0x01 << 4, version 0x80 << 12
// (kept to 16 bits: 0), the second with shift counts of 32 or more, and a
// sub-descriptor carrying "HW".
Bytes twoEntryCompatibility()
{
    return compatibility(2, concat({compatibilityItem(0x01, 0x00ABCD, {0x01, 0x04}, {0x80, 0x0C},
                                                      subItem(0x02, {'H', 'W'}), 1),
                                    compatibilityItem(0x02, 0x123456, {0x05, 0x20}, {0x03, 0x01}, {}, 0)}));
}

} // namespace

TEST(AppPortalUpdate, DecodesTheRecordAndNeverTheInstalledVersions)
{
    LogCapture log;
    Portal p(portalUpdate());
    ASSERT_TRUE(p.object);
    EXPECT_EQ(p.code, 0xBEEF); // success stores no code
    std::unique_ptr<std::list<TAppPortalUpdate::AppID*>> ids(p.object->getIds());
    ASSERT_EQ(ids->size(), 1u);
    EXPECT_EQ(ids->front()->host, "ab");
    EXPECT_EQ(ids->front()->id, "256");
    EXPECT_EQ(p.object->getMajorVersion(), 1);
    EXPECT_EQ(p.object->getMinorVersion(), 2);
    EXPECT_EQ(p.object->getSize(), 4096u);
    EXPECT_EQ(p.object->getPatchSize(), 512u);
    // The 0x80 presence bits are compared with 1 and never match.
    EXPECT_EQ(p.object->getMinIntalledMajorVersion(), 0);
    EXPECT_EQ(p.object->getMinInstalledMinorVersion(), 0);
    EXPECT_EQ(p.object->getMaxIntalledMajorVersion(), 0);
    EXPECT_EQ(p.object->getMaxInstalledMinorVersion(), 0);
    EXPECT_NO_LOG(log);

    // Three entries, the second without host bytes; the largest 64-bit id.
    Bytes three = {0x1E, 0x01, 'x', 0, 0, 0, 0, 0, 0, 0, 7, 0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,
                   0x02, 'y', 'z', 0, 0, 0, 0, 0, 0, 0, 9, 3, 4, 0, 0, 0, 1, 0, 0, 0, 2, 0x00};
    Portal t(three);
    ASSERT_TRUE(t.object);
    std::unique_ptr<std::list<TAppPortalUpdate::AppID*>> all(t.object->getIds());
    std::unique_ptr<std::list<TAppPortalUpdate::AppID*>> again(t.object->getIds());
    EXPECT_NE(all.get(), again.get());
    ASSERT_EQ(all->size(), 3u);
    EXPECT_EQ(*all, *again);
    std::vector<std::string> hosts, values;
    for (auto* id : *all) {
        hosts.push_back(id->host);
        values.push_back(id->id);
    }
    EXPECT_EQ(hosts, (std::vector<std::string>{"x", "", "yz"}));
    EXPECT_EQ(values, (std::vector<std::string>{"7", "18446744073709551615", "9"}));
    EXPECT_EQ(t.object->getMajorVersion(), 3);
}

TEST(AppPortalUpdate, RefusalsAndTheEmptyLoop)
{
    {
        LogCapture log;
        Portal empty({0x00}, 0);
        EXPECT_FALSE(empty.object);
        EXPECT_EQ(empty.code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        expectLines(log, 6, {kPortalLength});
    }
    {
        // No entries: the object comes back with every field zero, code untouched.
        LogCapture log;
        Portal none({0x00, 1, 2, 0, 0, 0x10, 0, 0, 0, 0, 0, 0});
        ASSERT_TRUE(none.object);
        EXPECT_EQ(none.code, 0xBEEF);
        EXPECT_EQ(none.object->getMajorVersion(), 0);
        EXPECT_EQ(none.object->getSize(), 0u);
        expectLines(log, 6, {kNoAppIds});
    }
    // A loop length of 10 for an 11-byte entry wraps the 8-bit count: the walk
    // goes on through the version fields and stops at the end of the data;
    // the record one byte short of its installed-version flags, likewise.
    Bytes wrapped = portalUpdate();
    wrapped[0] = 10;
    Bytes noFlags = portalUpdate();
    noFlags.resize(noFlags.size() - 2);
    for (const Bytes& bytes : {wrapped, noFlags}) {
        LogCapture log;
        Portal p(bytes);
        EXPECT_FALSE(p.object);
        EXPECT_EQ(p.code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        expectLines(log, 6, {kPortalLength});
    }
}

TEST(CompatibilityDescriptor, ShiftedModelAndVersionAndSubDescriptors)
{
    LogCapture log;
    const Bytes bytes = twoEntryCompatibility();
    ExactBuffer data(bytes);
    U32 parsed = 0;
    U16 code = 0xBEEF;
    std::unique_ptr<TCompatibilityDescriptor> c(TCompatibilityDescriptor::parse(data.data(), data.size(), &parsed, &code));
    ASSERT_TRUE(c);
    EXPECT_EQ(code, kOk);
    EXPECT_EQ(parsed, 2u + 15u + 11u); // the length field is not counted
    ASSERT_EQ(c->getCompatibilityDescriptorItemSize(), 2u);
    TCompatibilityDescriptorItem* first = c->getCompatibilityDescriptorItem(0);
    EXPECT_EQ(first->getDescriptorType(), 0x01);
    EXPECT_EQ(first->getSpecifierType(), 0x01);
    EXPECT_EQ(first->getSpecifierData(), 0x00ABCDu);
    EXPECT_EQ(first->getModel(), 0x0010);  // 0x01 << 4, not 0x0104
    EXPECT_EQ(first->getVersion(), 0x0000); // 0x80 << 12 kept to 16 bits
    ASSERT_EQ(first->getCompatibilityDescriptorSubItemSize(), 1u);
    TCompatibilityDescriptorSubItem* sub = first->getCompatibilityDescriptorSubItem(0);
    EXPECT_EQ(sub->getSubDescriptorType(), 0x02);
    EXPECT_EQ(block(sub->getAdditionalInformation(), sub->getAdditionalInformationLength()), "HW");
    TCompatibilityDescriptorItem* second = c->getCompatibilityDescriptorItem(1);
    EXPECT_EQ(second->getModel(), 0);   // shift count 32
    EXPECT_EQ(second->getVersion(), 6); // 3 << 1
    EXPECT_EQ(c->getCompatibilityDescriptorItem(2), nullptr);
    EXPECT_EQ(first->getCompatibilityDescriptorSubItem(1), nullptr);
    EXPECT_FALSE(first->removeCompatibilityDescriptorSubItem(1));
    EXPECT_TRUE(first->removeCompatibilityDescriptorSubItem(0));
    // A sub-descriptor a caller adds is appended and owned by the entry.
    first->addCompatibilityDescriptorSubItem(new TCompatibilityDescriptorSubItem());
    EXPECT_EQ(first->getCompatibilityDescriptorSubItemSize(), 1u);
    EXPECT_TRUE(c->removeCompatibilityDescriptorItem(0));
    EXPECT_EQ(c->getCompatibilityDescriptorItem(0)->getDescriptorType(), 0x02);
    expectLines(log, 5, {kCopyTarget}); // the byte copy warns on every fresh target
}

TEST(CompatibilityDescriptor, RefusedEntriesAndSubDescriptors)
{
    const std::string kInvalidSub = "ISDBTUtils: TCompatibilityDescriptorItem::parse: Invalid sub item. Aborting!";
    const std::string kInvalidItem = "ISDBTUtils: TCompatibilityDescriptor::parse: Invalid item. Aborting!";
    struct Case {
        Bytes bytes;
        U16 code;
        std::vector<std::string> lines;
    };
    const Bytes entry = compatibilityItem(0x01, 0, {1, 0}, {1, 0}, {}, 0);
    const Case cases[] = {
        // An entry of 10 bytes.
        {compatibility(1, Bytes(entry.begin(), entry.end() - 1)), kItem,
         {itemLine("TCompatibilityDescriptorItem", 10), kInvalidItem}},
        // A sub-descriptor with only its type byte left.
        {compatibility(1, compatibilityItem(0x01, 0, {1, 0}, {1, 0}, {0x02}, 1)), kItem,
         {itemLine("TCompatibilityDescriptorSubItem", 1), kInvalidSub, kInvalidItem}},
        // A sub-descriptor whose information runs past the buffer.
        {compatibility(1, compatibilityItem(0x01, 0, {1, 0}, {1, 0}, {0x02, 0x05, 'a'}, 1)), kItem,
         {itemLine("TCompatibilityDescriptorSubItem", 3), kInvalidSub, kInvalidItem}},
        // descriptorCount missing from the buffer.
        {{0x00, 0x02, 0x00}, kDescriptorLength, {}},
    };
    for (const Case& c : cases) {
        LogCapture log;
        ExactBuffer data(c.bytes);
        U16 code = 0;
        std::unique_ptr<TCompatibilityDescriptor> parsed(
            TCompatibilityDescriptor::parse(data.data(), data.size(), nullptr, &code));
        EXPECT_FALSE(parsed);
        EXPECT_EQ(code, c.code);
        EXPECT_WARNINGS(log, c.lines);
    }
}

TEST(DownloadContentDescriptor, EveryPartDecoded)
{
    DownloadContentFields f;
    f.flags = 0xB8; // reboot, compatibility, modules, text
    const Bytes modules = concat({module(0x0001, 0x00012345, {'m', '1'}), module(0x0002, 0x10, {})});
    LogCapture log;
    Result r(downloadContentDescriptor(f, twoEntryCompatibility(), modules, 2, portalUpdate(), textPart("por", "Nova versao")), 0);
    const U32 body = 17 + 30 + 2 + 9 + 7 + 1 + 24 + 4 + 11;
    ASSERT_TRUE(r.decoded(body));
    const TDownloadContentDescriptor& d = *r.object;
    EXPECT_EQ(d.getReboot(), 1);
    EXPECT_EQ(d.getAddOn(), 0);
    EXPECT_EQ(d.getCompatibilityFlag(), 1);
    EXPECT_EQ(d.getModuleInfoFlag(), 1);
    EXPECT_EQ(d.getTextInfoFlag(), 1);
    EXPECT_EQ(d.getComponentSize(), 0x00200000u);
    EXPECT_EQ(d.getDownloadID(), 0x0000ABCDu);
    EXPECT_EQ(d.getTimeOutValueDII(), 0x0000EA60u);
    EXPECT_EQ(d.getLeakRate(), 0x3FFFFFu); // 22 bits, the reserved bits dropped
    EXPECT_EQ(d.getComponentTag(), 0x40);
    ASSERT_NE(d.getCompatibilityDescriptor(), nullptr);
    EXPECT_EQ(d.getCompatibilityDescriptor()->getCompatibilityDescriptorItemSize(), 2u);
    ASSERT_EQ(d.getDownloadContentDescriptorItemSize(), 2u);
    EXPECT_EQ(d.getDownloadContentDescriptorItem(0)->getModuleID(), 1);
    EXPECT_EQ(d.getDownloadContentDescriptorItem(0)->getModuleSize(), 0x00012345u);
    EXPECT_EQ(block(d.getDownloadContentDescriptorItem(0)->getModuleInfo(), 2), "m1");
    EXPECT_EQ(d.getDownloadContentDescriptorItem(1)->getModuleInfoLength(), 0);
    EXPECT_EQ(d.getDownloadContentDescriptorItem(1)->getModuleInfo(), nullptr);
    EXPECT_EQ(d.getDownloadContentDescriptorItem(2), nullptr);
    EXPECT_EQ(d.getPrivateDataLength(), 24);
    EXPECT_EQ(block(d.getPrivateData(), 24), block(portalUpdate().data(), 24));
    ASSERT_NE(d.getAppPortalUpdateDescriptor(), nullptr);
    EXPECT_EQ(d.getAppPortalUpdateDescriptor()->getSize(), 4096u);
    EXPECT_EQ(d.getLanguageCode(), "por");
    EXPECT_EQ(d.getText(), "Nova versao");
    // One copy warning each: sub-descriptor, module m1, private data.
    expectLines(log, 5, {kCopyTarget, kCopyTarget, kCopyTarget});

    EXPECT_TRUE(r.object->removeDownloadContentDescriptorItem(0));
    EXPECT_FALSE(r.object->removeDownloadContentDescriptorItem(1));
    EXPECT_EQ(r.object->getDownloadContentDescriptorItem(0)->getModuleID(), 2);
}

TEST(DownloadContentDescriptor, OnlyTheLowLengthByteSizesTheCompatibilityPart)
{
    // compatibilityDescriptorLength 0x0102: 0x02 + 2 bytes are handed over
    // (an empty list) and the walk goes on right after them.
    DownloadContentFields f;
    f.flags = 0x20;
    Result r(downloadContentDescriptor(f, {0x01, 0x02, 0x00, 0x00}, {}, 0, {}, {}), 0);
    ASSERT_TRUE(r.decoded(17 + 4 + 1));
    EXPECT_EQ(r.object->getCompatibilityDescriptor()->getCompatibilityDescriptorItemSize(), 0u);
    EXPECT_EQ(r.object->getPrivateData(), nullptr);
    EXPECT_EQ(r.object->getAppPortalUpdateDescriptor(), nullptr);
    EXPECT_EQ(r.object->getLanguageCode(), "");
}

TEST(DownloadContentDescriptor, AnUndecodablePortalUpdateLeavesTheDescriptorUsable)
{
    LogCapture log;
    Result r(downloadContentDescriptor(DownloadContentFields(), {}, {}, 0, {0x05, 0x00}, {}), 0);
    ASSERT_TRUE(r.decoded(17 + 1 + 2));
    EXPECT_EQ(r.object->getAppPortalUpdateDescriptor(), nullptr);
    EXPECT_EQ(block(r.object->getPrivateData(), 2), std::string("\x05\x00", 2));
    EXPECT_EQ(log.texts(), (std::vector<std::string>{kCopyTarget, kPortalLength}));
    ASSERT_EQ(log.lines().size(), 2u);
    EXPECT_EQ(log.lines()[1].priority, 6);
}

TEST(DownloadContentDescriptor, Refusals)
{
    DownloadContentFields text;
    text.flags = 0x08;
    DownloadContentFields modules;
    modules.flags = 0x10;
    const std::string kText = "ISDBTUtils: TComponentDescriptor:: parse: ERROR: parsing Text. Aborting!";
    const std::string kLanguage =
        "ISDBTUtils: TDownloadContentDescriptor:: parse: ERROR: parsing Language Code. Aborting!";
    // Text 5 bytes declared, 2 there: the component descriptor's line.
    Bytes longText = downloadContentDescriptor(text, {}, {}, 0, {}, textPart("por", "ab"));
    longText[longText.size() - 3] = 5;
    expectRefused<TDownloadContentDescriptor>(Bytes(longText.begin() + 2, longText.end()), kString,
                                              {kStringLine + "5 > 2. Aborting!", kText});
    // Language code with two bytes left.
    const Bytes shortLanguage = downloadContentDescriptor(text, {}, {}, 0, {}, {'p', 'o'});
    expectRefused<TDownloadContentDescriptor>(Bytes(shortLanguage.begin() + 2, shortLanguage.end()), kString,
                                              {kStringLine + "3 > 2. Aborting!", kLanguage});
    // Two modules announced, one byte (private_data_length) left for the second.
    const Bytes shortModule = downloadContentDescriptor(modules, {}, module(1, 0x10, {}), 2, {}, {});
    expectRefused<TDownloadContentDescriptor>(
        Bytes(shortModule.begin() + 2, shortModule.end()), kItem,
        {itemLine("TDownloadContentDescriptorItem", 1),
         "ISDBTUtils: TDownloadContentDescriptor::parse: Invalid item. Aborting!"});
    // The compatibility part's count past the descriptor and the buffer.
    DownloadContentFields compat;
    compat.flags = 0x20;
    const Bytes cut = downloadContentDescriptor(compat, {0x00, 0x02, 0x00}, {}, 0, {}, {});
    expectRefusedWithin<TDownloadContentDescriptor>(Bytes(cut.begin(), cut.end() - 1), cut.size(),
                                                    kDescriptorLength, {});
    // Private data of 4 bytes, 2 in the buffer: the header's length line.
    const Bytes whole = downloadContentDescriptor(DownloadContentFields(), {}, {}, 0, {1, 2, 3, 4}, {});
    expectRefusedWithin<TDownloadContentDescriptor>(Bytes(whole.begin(), whole.end() - 2), whole.size(),
                                                    kDescriptorLength,
                                                    {kHeaderLine + "(4) Longer data length is required: 24 < 22. Aborting!"});
    // Below the minimum length of 18.
    expectRefusedWithin<TDownloadContentDescriptor>(concat({descriptor(0xC9, Bytes(17, 0)), {0, 0, 0}}), 0,
                                                    kDescriptorLength,
                                              {kHeaderLine + "(5) Longer descriptor length is required: 17 < 18. Aborting!"});
}
