#include <gtest/gtest.h>

#include <memory>

#include <ait/TAITTable.h>
#include <descriptors/TGingaJavaApplicationLocationDescriptor.h>
#include <descriptors/TGingaNCLApplicationDescriptor.h>
#include <descriptors/TGingaNCLApplicationLocationDescriptor.h>
#include <descriptors/TTransportProtocolDescriptorIP.h>
#include <descriptors/TTransportProtocolDescriptorOC.h>

#include "../support/LogCapture.h"
#include "../support/RefusalExpect.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

constexpr U16 kOk = TISDBTTable::ERROR_OK;
constexpr U16 kDataLength = TISDBTTable::ERROR_INVALID_DATA_LENGTH;
constexpr U16 kItem = TISDBTTable::ERROR_INVALID_ITEM;
const std::string kAppLine = "ISDBTUtils: TApplication::parse: ";
const std::string kTableLine = "ISDBTUtils: TAITTable::parse: ";

// application_identifier, application_control_code, reserved (4) + 12-bit
// application_descriptors_loop_length, descriptors.
Bytes application(U32 organisation, U16 id, U8 controlCode, const Bytes& descriptors)
{
    return concat({{static_cast<U8>(organisation >> 24), static_cast<U8>(organisation >> 16),
                    static_cast<U8>(organisation >> 8), static_cast<U8>(organisation), static_cast<U8>(id >> 8),
                    static_cast<U8>(id), controlCode, static_cast<U8>(0xF0 | (descriptors.size() >> 8)),
                    static_cast<U8>(descriptors.size())},
                   descriptors});
}

Bytes ait(U16 type, const Bytes& common, const Bytes& applications, U8 version = 3)
{
    return SectionBuilder(0x74).longHeader(type, version).loop(common).loop(applications).build();
}

std::unique_ptr<TAITTable> parse(ExactBuffer& data, U16* code, TAITTable* previous = nullptr)
{
    return std::unique_ptr<TAITTable>(TAITTable::parse(data.data(), data.size(), TRUE, TRUE, code, previous));
}

// The common object carousel: label 1, component 0x40.
const Bytes kCommonCarousel = descriptor(0x02, {0x00, 0x01, 0x01, 0x00, 0x40});
// An NCL application started automatically from the carousel.
const Bytes kNclApplication =
    application(0x12AB, 0x4000, TApplication::CONTROLCODE_AUTOSTART,
                concat({descriptor(0x00, {5, 0x00, 0x09, 1, 0, 0, 0xC0, 0x80, 0x01}),
                        descriptor(0x01, {'p', 'o', 'r', 4, 'J', 'o', 'g', 'o'}),
                        descriptor(0x07, {0, 0, 'm', 'a', 'i', 'n', '.', 'n', 'c', 'l'})}));
// A Java application with names in two languages, its own IP transport,
// stuffing and a descriptor the application does not keep.
const Bytes kJavaApplication =
    application(0x10, 0x0001, TApplication::CONTROLCODE_PRESENT,
                concat({descriptor(0x01, {'p', 'o', 'r', 4, 'J', 'o', 'g', 'o', 'e', 'n', 'g', 4, 'G', 'a', 'm', 'e'}),
                        descriptor(0x42, {0xFF}), descriptor(0x7F, {0x01}),
                        descriptor(0x04, {1, '/', 0, 'M', 'a', 'i', 'n'}),
                        descriptor(0x02, {0x00, 0x02, 0x02, 0x00, 0x00, 3, 'u', 'r', 'l'})}));

} // namespace

TEST(ApplicationIdentifier, HashIdsAndParse)
{
    const struct {
        U32 organisation;
        std::uint64_t application;
        const char* hash;
    } cases[] = {{0x10, 0x0001, "000000101"},
                 {0x12AB, 0x4000, "000012AB4000"},
                 {0xFFFFFFFF, 0xFFFF, "FFFFFFFFFFFF"},
                 {0x05, 0, "000000050"},
                 {0x01, 0xFFFFFFFFFFFFFFFFull, "00000001FFFFFFFFFFFFFFFF"}};
    for (const auto& c : cases) {
        EXPECT_EQ(TApplicationIdentifier::calculateHashID(c.organisation, c.application), c.hash);
        TApplicationIdentifier identifier(c.organisation, c.application);
        EXPECT_EQ(TApplicationIdentifier::calculateHashID(&identifier), c.hash);
    }

    LogCapture log;
    ExactBuffer bytes({0x00, 0x00, 0x12, 0xAB, 0x40, 0x00});
    U32 length = 0;
    U16 code = 0xBEEF;
    std::unique_ptr<TApplicationIdentifier> identifier(
        TApplicationIdentifier::parse(bytes.data(), bytes.size(), FALSE, &length, &code));
    ASSERT_NE(identifier, nullptr);
    EXPECT_EQ(length, 6u);
    EXPECT_EQ(code, kOk);
    EXPECT_EQ(identifier->getOrganizationID(), 0x12ABu);
    EXPECT_EQ(identifier->getApplicationID(), 0x4000u);
    EXPECT_EQ(TApplicationIdentifier(identifier.get()).getApplicationID(), 0x4000u);
    EXPECT_EQ(TApplicationIdentifier::parse(bytes.data(), 5, FALSE, &length, &code), nullptr);
    EXPECT_EQ(code, kDataLength);
    EXPECT_WARNINGS(log, "ISDBTUtils: TApplicationIdentifier::parse: Item length not valid: 5. Aborting!");
}

TEST(AITTable, DecodesAFullSectionWithInheritedTransport)
{
    LogCapture log;
    ExactBuffer data(ait(TApplication::TYPE_NCL, concat({kCommonCarousel, descriptor(0x06, {3, 'x', '=', '1'}),
                                                         descriptor(0x42, {}), descriptor(0x70, {})}),
                         concat({kNclApplication, kJavaApplication})));
    U16 code = 0xBEEF;
    auto table = parse(data, &code);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(code, kOk);
    EXPECT_WARNINGS(log, kTableLine + "Ginga NCL Application Descriptor... WHAT TO DO????",
                    kTableLine + "Unknown descriptor: 0x70. Ignored!", kAppLine + "Unknown descriptor: 0x7F. Ignored!");
    EXPECT_EQ(table->getType(), TISDBTTable::AIT);
    EXPECT_EQ(table->getVersion(), 3);
    EXPECT_EQ(table->getApplicationType(), TApplication::TYPE_NCL);
    EXPECT_EQ(table->getDescriptorTags(), (std::list<U8>{0x02, 0x06}));
    EXPECT_EQ(table->getDescriptor(0x06), table->getGingaApplicationDescriptor());
    EXPECT_EQ(table->getDescriptor(0x03), nullptr);
    EXPECT_EQ(table->getDescriptor(0x04), nullptr);
    EXPECT_EQ(table->getGingaApplicationDescriptor()->get(0), "x=1");
    EXPECT_EQ(table->getApplicationsCount(), 2u);
    EXPECT_EQ(table->getApplicationsIDs(), (std::list<std::string>{"000000101", "000012AB4000"}));

    TApplication* ncl = table->getApplication("000012AB4000");
    ASSERT_NE(ncl, nullptr);
    EXPECT_EQ(ncl->getControlCode(), TApplication::CONTROLCODE_AUTOSTART);
    EXPECT_EQ(ncl->getApplicationType(), TApplication::TYPE_NCL);
    EXPECT_EQ(ncl->getDescriptorTags(), (std::list<U8>{0x00, 0x01, 0x07}));
    EXPECT_EQ(ncl->getApplicationDescriptor(FALSE, nullptr)->getApplicationPriority(), 0x80);
    EXPECT_EQ(ncl->getDescriptor(0x03), nullptr);
    EXPECT_EQ(ncl->getDescriptor(0x04), nullptr); // the slot holds the NCL form
    EXPECT_NE(ncl->getDescriptor(0x07), nullptr);
    // The application has no transport of its own: it takes the table's.
    BOOL inherited = FALSE;
    EXPECT_EQ(ncl->getTransportProtocolDescriptor(FALSE, &inherited), nullptr);
    EXPECT_FALSE(inherited);
    TTransportProtocolDescriptor* transport = ncl->getTransportProtocolDescriptor(TRUE, &inherited);
    EXPECT_EQ(transport, table->getTransportProtocolDescriptor());
    EXPECT_TRUE(inherited);
    EXPECT_EQ(static_cast<TTransportProtocolDescriptorOC*>(transport)->getComponentTag(), 0x40);
    inherited = FALSE;
    EXPECT_EQ(ncl->getIPSignalingDescriptor(TRUE, &inherited), nullptr);
    EXPECT_FALSE(inherited);

    // The Java application's descriptors made it TYPE_JAVA; the section's type wins.
    TApplication* java = table->getApplication("000000101");
    ASSERT_NE(java, nullptr);
    EXPECT_EQ(java->getApplicationType(), TApplication::TYPE_NCL);
    EXPECT_EQ(java->getControlCode(), TApplication::CONTROLCODE_PRESENT);
    EXPECT_EQ(java->getDescriptorTags(), (std::list<U8>{0x01, 0x02, 0x04}));
    EXPECT_EQ(java->getApplicationNameDescriptor(TRUE, nullptr)->get("eng")->getName(), "Game");
    inherited = FALSE;
    EXPECT_NE(java->getTransportProtocolDescriptor(TRUE, &inherited), table->getTransportProtocolDescriptor());
    EXPECT_FALSE(inherited);
    // A common Ginga descriptor stands in for the one the application lacks.
    EXPECT_EQ(java->getGingaApplicationDescriptor(TRUE, &inherited), table->getGingaApplicationDescriptor());
    EXPECT_TRUE(inherited);
    EXPECT_EQ(java->getApplicationIdentifier()->getOrganizationID(), 0x10u);
    EXPECT_EQ(java->getDataLength(), static_cast<U32>(kJavaApplication.size()));

    // Copies with and without inherit, read after the table is gone.
    std::unique_ptr<TApplication> withInherit(new TApplication(ncl, TRUE));
    std::unique_ptr<TApplication> ownOnly(new TApplication(ncl, FALSE));
    std::unique_ptr<TApplication> javaCopy(new TApplication(java, TRUE));
    table.reset();
    EXPECT_EQ(withInherit->getHashID(), "000012AB4000");
    EXPECT_EQ(withInherit->getApplicationType(), TApplication::TYPE_NCL);
    EXPECT_EQ(withInherit->getDescriptorTags(), (std::list<U8>{0x00, 0x01, 0x02, 0x06, 0x07}));
    auto* copiedCarousel =
        dynamic_cast<TTransportProtocolDescriptorOC*>(withInherit->getTransportProtocolDescriptor(TRUE, nullptr));
    ASSERT_NE(copiedCarousel, nullptr);
    EXPECT_EQ(copiedCarousel->getTransportProtocolLabel(), 0x01);
    EXPECT_EQ(copiedCarousel->getComponentTag(), 0x40);
    EXPECT_NE(dynamic_cast<TGingaNCLApplicationDescriptor*>(withInherit->getGingaApplicationDescriptor(FALSE, nullptr)),
              nullptr);
    auto* location = dynamic_cast<TGingaNCLApplicationLocationDescriptor*>(
        withInherit->getGingaApplicationLocationDescriptor(FALSE, nullptr));
    ASSERT_NE(location, nullptr);
    EXPECT_EQ(location->getInitialClass(), "main.ncl");
    EXPECT_EQ(withInherit->getApplicationNameDescriptor(FALSE, nullptr)->get("por")->getName(), "Jogo");
    EXPECT_EQ(withInherit->getApplicationIdentifier()->getApplicationID(), 0x4000u);
    EXPECT_EQ(ownOnly->getDescriptorTags(), (std::list<U8>{0x00, 0x01, 0x07}));
    EXPECT_EQ(ownOnly->getTransportProtocolDescriptor(TRUE, nullptr), nullptr); // no parent
    auto* javaLocation = dynamic_cast<TGingaJavaApplicationLocationDescriptor*>(
        javaCopy->getGingaApplicationLocationDescriptor(FALSE, nullptr));
    ASSERT_NE(javaLocation, nullptr);
    EXPECT_EQ(javaLocation->getInitialClass(), "Main");
    auto* ip = dynamic_cast<TTransportProtocolDescriptorIP*>(javaCopy->getTransportProtocolDescriptor(FALSE, nullptr));
    ASSERT_NE(ip, nullptr);
    EXPECT_EQ(ip->getURL(0), "url");
}

TEST(AITTable, ApplicationsMap)
{
    LogCapture log;
    // The same identifier twice: the later entry wins.
    const Bytes again = application(0x12AB, 0x4000, TApplication::CONTROLCODE_KILL, {});
    ExactBuffer data(ait(TApplication::TYPE_JAVA, {}, concat({kNclApplication, again})));
    U16 code = 0;
    auto table = parse(data, &code);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->getApplicationsCount(), 1u);
    EXPECT_EQ(table->getApplication("000012AB4000")->getControlCode(), TApplication::CONTROLCODE_KILL);
    EXPECT_EQ(table->getDescriptorTags(), std::list<U8>{});

    // A caller's add displaces without deleting; remove deletes.
    TApplication* displaced = table->getApplication("000012AB4000");
    ExactBuffer entry(kNclApplication);
    table->addApplication(TApplication::parse(entry.data(), entry.size(), TRUE, nullptr, nullptr));
    EXPECT_NE(table->getApplication("000012AB4000"), displaced);
    delete displaced;
    EXPECT_FALSE(table->removeApplication("000000101"));
    EXPECT_EQ(table->getApplicationsCount(), 1u);
    EXPECT_TRUE(table->removeApplication("000012AB4000"));
    EXPECT_EQ(table->getApplication("000012AB4000"), nullptr);
    EXPECT_NO_LOG(log);

    // The same version again is not an update.
    ExactBuffer same(ait(TApplication::TYPE_JAVA, {}, {}));
    auto previous = parse(same, &code);
    ASSERT_NE(previous, nullptr);
    EXPECT_EQ(parse(same, &code, previous.get()), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_TABLE_NOT_UPDATED);
}

TEST(Application, ParsesOnItsOwn)
{
    LogCapture log;
    Bytes bytes = concat({kJavaApplication, {0xAA, 0xBB}}); // the rest of a section
    ExactBuffer data(bytes);
    U32 length = 0;
    U16 code = 0xBEEF;
    std::unique_ptr<TApplication> app(TApplication::parse(data.data(), data.size(), FALSE, &length, &code));
    ASSERT_NE(app, nullptr);
    EXPECT_EQ(code, kOk);
    EXPECT_EQ(length, static_cast<U32>(kJavaApplication.size())); // the entry, whatever was handed in
    EXPECT_EQ(app->getDataLength(), data.size());
    EXPECT_EQ(app->getApplicationType(), TApplication::TYPE_JAVA);
    EXPECT_EQ(app->getHashID(), "000000101");
    EXPECT_EQ(app->getTransportProtocolDescriptor(TRUE, nullptr)->getProtocolID(), 2); // no parent: its own
    EXPECT_WARNINGS(log, kAppLine + "Unknown descriptor: 0x7F. Ignored!");

    // Only an NCL location descriptor.
    ExactBuffer ncl(application(1, 1, 1, descriptor(0x07, {0, 0, 'a', 'b'})));
    app.reset(TApplication::parse(ncl.data(), ncl.size(), TRUE, nullptr, nullptr));
    ASSERT_NE(app, nullptr);
    EXPECT_EQ(app->getApplicationType(), TApplication::TYPE_NCL);
    EXPECT_EQ(app->getDescriptorTags(), std::list<U8>{0x07});
}

TEST(Application, Failures)
{
    const auto refused = [](const Bytes& bytes, U16 expected, const std::vector<std::string>& lines,
                            U32 length = 0) {
        LogCapture log;
        ExactBuffer data(bytes);
        U16 code = 0xBEEF;
        std::unique_ptr<TApplication> app(TApplication::parse(data.data(), length ? length : data.size(), TRUE,
                                                              nullptr, &code, data.data() + data.size()));
        EXPECT_EQ(app, nullptr);
        EXPECT_EQ(code, expected);
        EXPECT_WARNINGS(log, lines);
    };
    refused({0, 0, 0, 1, 0}, kDataLength, {kAppLine + "Item length not valid: 5. Aborting!"});
    // Loop length over what remains after the fixed part.
    Bytes longLoop = application(1, 1, 1, {});
    longLoop[8] = 1;
    refused(longLoop, kDataLength, {kAppLine + "Item length not valid: 1 > 0. Aborting!"});
    refused(application(1, 1, 1, {0x11, 5, 1, 2, 3}), kDataLength,
            {kAppLine + "Item length not valid: 5 > 3. Aborting!"});
    // A descriptor's own failure keeps its code and line.
    refused(application(1, 1, 1, descriptor(0x11, {1, 2})), TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH,
            {"ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (2) Longer data length is required: 4 < 5. Aborting!"});
    // A refused transport protocol leaves the header check's ERROR_OK.
    refused(application(1, 1, 1, descriptor(0x02, {0x00, 0x03, 0x00})), kOk, {});
    // Handed 7 bytes, remaining wraps after the fixed part and the loop goes
    // on over the following bytes, up to the end of the buffer.
    refused(application(1, 1, 1, {0x11, 3, 0, 0}), kDataLength, {kAppLine + "Item length not valid: 3 > 2. Aborting!"},
            7);
    {
        ExactBuffer data(application(1, 1, 1, descriptor(0x11, {0x12, 0x34, 0x56})));
        U32 length = 0;
        std::unique_ptr<TApplication> app(
            TApplication::parse(data.data(), 7, TRUE, &length, nullptr, data.data() + data.size()));
        ASSERT_NE(app, nullptr);
        EXPECT_EQ(length, data.size());
        EXPECT_EQ(app->getIPSignalingDescriptor(FALSE, nullptr)->getPlatformID(), 0x123456u);
        EXPECT_EQ(app->getDataLength(), 7u);
    }
}

TEST(AITTable, Failures)
{
    const auto refused = [](const Bytes& bytes, U16 expected, const std::vector<std::string>& lines) {
        LogCapture log;
        EXPECT_TRUE(refusedBy([](ExactBuffer& data, U16* code) { return parse(data, code); }, bytes, expected));
        EXPECT_WARNINGS(log, lines);
    };
    const Bytes app = application(1, 1, 1, {});
    // Common loop length over the body (the 2-byte application loop length
    // and the CRC are not counted).
    refused(SectionBuilder(0x74).longHeader(1, 0).u16(0xF005).u16(0xF000).build(), kDataLength,
            {kTableLine + "Item length not valid: 5 > 2. Aborting!"});
    // A common descriptor longer than what remains: the line reports the
    // common length still to go, then remaining - 2 as an unsigned value.
    refused(SectionBuilder(0x74).longHeader(1, 0).u16(0xF002).u8(0x11).u8(0x03).build(), kDataLength,
            {kTableLine + "Item length not valid: 2 > 0. Aborting!"});
    refused(SectionBuilder(0x74).longHeader(1, 0).u16(0xF001).u8(0x11).build(), kDataLength,
            {kTableLine + "Item length not valid: 1 > 4294967295. Aborting!"});
    refused(SectionBuilder(0x74).longHeader(1, 0).u16(0xF000).u16(0xF00A).bytes(app).build(), kDataLength,
            {kTableLine + "Item length not valid: 10 > 9. Aborting!"});
    refused(ait(1, {}, {0, 0, 0, 1, 0}), kItem,
            {kAppLine + "Item length not valid: 5. Aborting!", kTableLine + "Invalid item. Aborting!"});
    // A refused common transport protocol fails the table with ERROR_OK.
    refused(ait(1, descriptor(0x02, {0x00, 0x09, 0x00}), {}), kOk,
            {"ISDBTUtils: TTransportProtocolDescriptor::parse: Unknown protocol ID: 0x0009. Aborting!"});
    refused(ait(1, descriptor(0x04, {1}), {}), TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH,
            {kTableLine + "Ginga Java Application Location Descriptor... WHAT TO DO????",
             "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (2) Longer data length is required: 3 < 6. Aborting!"});
    // section_length 5: the 16-bit body length wraps and the reads stop at
    // the end of the data.
    refused({0x74, 0xB0, 0x05, 0x00, 0x01, 0xC1, 0x00, 0x00}, kDataLength,
            {"ISDBTUtils: TISDBTTable::parse: Longer data length is required: 0 < 2. Aborting!"});
}
