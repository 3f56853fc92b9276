#include <gtest/gtest.h>

#include <descriptors/TApplicationDescriptor.h>
#include <descriptors/TApplicationIconDescriptor.h>
#include <descriptors/TApplicationNameDescriptor.h>
#include <descriptors/TDIILocationDescriptor.h>
#include <descriptors/TExternalApplicationAuthorizationDescriptor.h>
#include <descriptors/TGingaJavaApplicationDescriptor.h>
#include <descriptors/TGingaJavaApplicationLocationDescriptor.h>
#include <descriptors/TGingaNCLApplicationDescriptor.h>
#include <descriptors/TGingaNCLApplicationLocationDescriptor.h>
#include <descriptors/TIPSignalingDescriptor.h>
#include <descriptors/TPrefetchDescriptor.h>

#include "DescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

std::string invalidItem(const std::string& owner)
{
    return "ISDBTUtils: " + owner + "::parse: Invalid item. Aborting!";
}

std::string itemLength(const std::string& item, U32 value)
{
    return "ISDBTUtils: " + item + "::parse: Item length not valid: " + std::to_string(value) + ". Aborting!";
}

const std::string kLocationLine = "ISDBTUtils: TGingaApplicationLocationDescriptor::parse: ";

} // namespace

TEST(ApplicationDescriptor, DecodesProfilesFlagsAndLabels)
{
    LogCapture log;
    // Two profiles, service bound, visibility 3, priority 0xFF, labels 1 and 2.
    Parsed<TApplicationDescriptor> r({10, 0x00, 0x01, 1, 0, 2, 0x80, 0x02, 1, 1, 0, 0xE0, 0xFF, 0x01, 0x02});
    ASSERT_TRUE(r.decoded(15u));
    TApplicationDescriptor& d = *r.object;
    EXPECT_EQ(d.getProfilesCount(), 2u);
    EXPECT_EQ(d.getProfiles(), (std::list<U16>{0x0001, 0x8002}));
    EXPECT_EQ(d.getProfile(0x0001)->getVersionMicro(), 2);
    EXPECT_EQ(d.getProfile(0x8002)->getVersionMajor(), 1);
    EXPECT_EQ(d.getProfile(0x0002), nullptr);
    EXPECT_TRUE(d.isServiceBound());
    EXPECT_EQ(d.getVisibility(), 3);
    EXPECT_TRUE(d.isVisibileForUsers() && d.isVisibileForApplications());
    EXPECT_EQ(d.getApplicationPriority(), 0xFF);
    ASSERT_EQ(d.getTransportProtocolsCount(), 2);
    EXPECT_EQ(block(d.getTransportProtocols(), 2), "\x01\x02");

    // A deep copy outlives the source and its bytes.
    std::unique_ptr<TApplicationDescriptor> copy(new TApplicationDescriptor(r.object.get()));
    r.object.reset();
    EXPECT_EQ(copy->getData(), nullptr);
    EXPECT_EQ(copy->getProfile(0x8002)->getVersionMinor(), 1);
    EXPECT_EQ(block(copy->getTransportProtocols(), copy->getTransportProtocolsCount()), "\x01\x02");

    // A caller's profile displaces without deleting; remove deletes.
    TApplicationDescriptorProfile* displaced = copy->getProfile(0x0001);
    ExactBuffer bytes({0x00, 0x01, 9, 9, 9});
    copy->addProfile(TApplicationDescriptorProfile::parse(bytes.data(), bytes.size(), nullptr, nullptr));
    EXPECT_EQ(copy->getProfile(0x0001)->getVersionMajor(), 9);
    delete displaced;
    EXPECT_TRUE(copy->removeProfile(0x0001));
    EXPECT_FALSE(copy->removeProfile(0x0001));

    // Visibility 1 (applications only), no profiles, no labels.
    Parsed<TApplicationDescriptor> bare({0, 0x20, 0x01});
    ASSERT_TRUE(bare.decoded(3u));
    EXPECT_FALSE(bare.object->isServiceBound() || bare.object->isVisibileForUsers());
    EXPECT_TRUE(bare.object->isVisibileForApplications());
    EXPECT_EQ(bare.object->getProfilesCount(), 0u);
    EXPECT_EQ(bare.object->getTransportProtocolsCount(), 0);
    EXPECT_EQ(bare.object->getTransportProtocols(), nullptr);
    EXPECT_NO_LOG(log);
}

TEST(ApplicationDescriptor, Failures)
{
    // Profiles length 7: the second profile is handed the 2 bytes left of it.
    expectRefused<TApplicationDescriptor>({7, 0, 1, 1, 0, 0, 0, 0, 0, 0}, kDataLength,
                                          {itemLength("TApplicationDescriptorProfile", 2)});
    expectRefused<TApplicationDescriptor>(
        {4, 0, 1, 1}, kDataLength,
        {"ISDBTUtils: TApplicationDescriptor:: parse: Application Profiles Length exceeds Descriptor Length: 4 > 3. "
         "Aborting!"});
    expectRefused<TApplicationDescriptor>({5, 0, 1, 1, 0, 0, 0x80}, kDataLength,
                                          {"ISDBTUtils: TApplicationDescriptor:: parse: Section length exceeded. "
                                           "Aborting!"});
}

TEST(ApplicationNameDescriptor, NamesPerLanguage)
{
    LogCapture log;
    Parsed<TApplicationNameDescriptor> r({'p', 'o', 'r', 4, 'J', 'o', 'g', 'o', 'e', 'n', 'g', 4, 'G', 'a', 'm', 'e'});
    ASSERT_TRUE(r.decoded(8u)); // the last item's length
    EXPECT_EQ(r.object->size(), 2u);
    EXPECT_EQ(r.object->getLanguageCodes(), (std::list<std::string>{"eng", "por"}));
    EXPECT_EQ(r.object->get("por")->getName(), "Jogo");
    EXPECT_EQ(r.object->get("eng")->getLanguageCode(), "eng");
    EXPECT_EQ(r.object->get("spa"), nullptr);

    // The same language twice keeps the later name.
    Parsed<TApplicationNameDescriptor> twice({'p', 'o', 'r', 1, 'A', 'p', 'o', 'r', 1, 'B'});
    ASSERT_TRUE(twice.decoded(5u));
    EXPECT_EQ(twice.object->size(), 1u);
    EXPECT_EQ(twice.object->get("por")->getName(), "B");

    TApplicationNameDescriptor copy(r.object.get());
    r.object.reset();
    EXPECT_EQ(copy.get("por")->getName(), "Jogo");
    copy.add(new TApplicationNameDescriptorItem("spa", "Juego"));
    EXPECT_EQ(copy.size(), 3u);
    EXPECT_TRUE(copy.remove("eng"));
    EXPECT_FALSE(copy.remove("eng"));
    EXPECT_EQ(TApplicationNameDescriptor().size(), 0u);
    EXPECT_NO_LOG(log);

    expectRefused<TApplicationNameDescriptor>(
        {'p', 'o', 'r', 0, 'e', 'n', 'g'}, kDescriptorLength,
        {itemLength("TApplicationNameDescriptorItem", 3), invalidItem("TApplicationNameDescriptor")});
    expectRefused<TApplicationNameDescriptor>(
        {'p', 'o', 'r', 5, 'J'}, kDescriptorLength,
        {kStringLine + "5 > 1. Aborting!",
         "ISDBTUtils: TApplicationNameDescriptorItem:: parse: ERROR: parsing Name. Aborting!",
         invalidItem("TApplicationNameDescriptor")});
}

TEST(ApplicationIconDescriptor, LocatorAndFlags)
{
    LogCapture log;
    Parsed<TApplicationIconDescriptor> r({5, 'i', 'c', 'o', 'n', '/', 0x81, 0x48});
    ASSERT_TRUE(r.decoded(10u)); // dataLength, kept to 8 bits
    EXPECT_EQ(r.object->getIconLocator(), "icon/");
    EXPECT_EQ(r.object->getIconFlags(), 0x8148); // reserved bit included
    EXPECT_EQ(r.object->getIconFlags() & TApplicationIconDescriptor::FLAG_64x64_SQUARE,
              TApplicationIconDescriptor::FLAG_64x64_SQUARE);
    TApplicationIconDescriptor copy(r.object.get());
    EXPECT_EQ(copy.getIconLocator(), "icon/");
    EXPECT_EQ(copy.getIconFlags(), 0x8148);

    // A locator filling the descriptor takes its flags from the next bytes of
    // the buffer; with none there the parse stops at its end.
    Parsed<TApplicationIconDescriptor> beyond({0x0B, 2, 1, 'x', 0x00, 0x80}, 4);
    ASSERT_TRUE(beyond.decoded(4u));
    EXPECT_EQ(beyond.object->getIconFlags(), 0x0080);
    EXPECT_NO_LOG(log);
    expectRefused<TApplicationIconDescriptor>({1, 'x'}, kDescriptorLength, {});
    expectRefused<TApplicationIconDescriptor>(
        {4, 'x', 0, 0}, kString,
        {kStringLine + "4 > 3. Aborting!",
         "ISDBTUtils: TApplicationIconDescriptor:: parse: ERROR: parsing Icon Locator. Aborting!"});
}

TEST(ExternalApplicationAuthorizationDescriptor, AuthorisedApplicationsByHashId)
{
    LogCapture log;
    Parsed<TExternalApplicationAuthorizationDescriptor> r(
        {0x00, 0x00, 0x12, 0xAB, 0x40, 0x00, 5, 0x00, 0x00, 0x00, 0x10, 0x00, 0x01, 9});
    ASSERT_TRUE(r.decoded(7u));
    EXPECT_EQ(r.object->getApplicationIdentifierHashIDs(), (std::list<std::string>{"000000101", "000012AB4000"}));
    EXPECT_EQ(r.object->get("000012AB4000")->getPriority(), 5);
    EXPECT_EQ(r.object->get("000000101")->getApplicationIdentifier()->getOrganizationID(), 0x10u);

    TExternalApplicationAuthorizationDescriptor copy(r.object.get());
    r.object.reset();
    EXPECT_EQ(copy.get("000000101")->getApplicationIdentifier()->getApplicationID(), 1u);
    EXPECT_TRUE(copy.remove("000000101"));
    EXPECT_EQ(copy.size(), 1u);
    // An added item with an identifier already there displaces the earlier
    // one, which is the caller's from then on.
    ExactBuffer again({0x00, 0x00, 0x12, 0xAB, 0x40, 0x00, 7});
    TExternalApplicationAuthorizationDescriptorItem* earlier = copy.get("000012AB4000");
    copy.add(TExternalApplicationAuthorizationDescriptorItem::parse(again.data(), again.size(), nullptr, nullptr));
    copy.add(nullptr);
    EXPECT_EQ(copy.size(), 1u);
    EXPECT_EQ(copy.get("000012AB4000")->getPriority(), 7);
    EXPECT_EQ(earlier->getPriority(), 5);
    delete earlier;

    Parsed<TExternalApplicationAuthorizationDescriptor> empty(Bytes{});
    ASSERT_TRUE(empty.decoded(0u));
    EXPECT_NO_LOG(log);
    expectRefused<TExternalApplicationAuthorizationDescriptor>(
        {0, 0, 0, 1, 0, 1}, kDescriptorLength,
        {itemLength("TExternalApplicationAuthorizationDescriptorItem", 6),
         invalidItem("TExternalApplicationAuthorizationDescriptor")});
}

TEST(ApplicationDescriptors, IPSignalingPrefetchAndDIILocation)
{
    LogCapture log;
    Parsed<TIPSignalingDescriptor> ip({0x12, 0x34, 0x56});
    ASSERT_TRUE(ip.decoded(3u));
    EXPECT_EQ(ip.object->getPlatformID(), 0x123456u);
    EXPECT_EQ(TIPSignalingDescriptor(ip.object.get()).getPlatformID(), 0x123456u);

    Parsed<TPrefetchDescriptor> prefetch({0x07, 4, 'm', 'a', 'i', 'n', 0x80, 3, 'l', 'i', 'b', 0x10});
    ASSERT_TRUE(prefetch.decoded(5u));
    EXPECT_EQ(prefetch.object->getTransportProtocolLabel(), 0x07);
    ASSERT_EQ(prefetch.object->size(), 2u);
    EXPECT_EQ(prefetch.object->get(0)->getLabel(), "main");
    EXPECT_EQ(prefetch.object->get(1)->getPriority(), 0x10);
    EXPECT_EQ(prefetch.object->get(2), nullptr);
    TPrefetchDescriptor prefetchCopy(prefetch.object.get());
    prefetch.object.reset();
    EXPECT_EQ(prefetchCopy.get(1)->getLabel(), "lib");
    EXPECT_FALSE(prefetchCopy.remove(2));
    EXPECT_TRUE(prefetchCopy.remove(0));
    EXPECT_EQ(prefetchCopy.get(0)->getLabel(), "lib");

    Parsed<TDIILocationDescriptor> dii({0x01, 0x80, 0x01, 0x00, 0x40, 0x00, 0x02, 0x00, 0x41});
    ASSERT_TRUE(dii.decoded(4u));
    EXPECT_EQ(dii.object->getTransportProtocolLabel(), 0x01);
    ASSERT_EQ(dii.object->size(), 2u);
    EXPECT_EQ(dii.object->get(0)->getDIIIdentification(), 0x0001); // reserved bit dropped
    EXPECT_EQ(dii.object->get(1)->getAssociationTag(), 0x0041);
    EXPECT_EQ(TDIILocationDescriptor(dii.object.get()).get(1)->getDIIIdentification(), 0x0002);
    EXPECT_NO_LOG(log);

    // A label ending exactly at the descriptor's end leaves no priority byte.
    expectRefused<TPrefetchDescriptor>({0x07, 3, 'a', 'b', 'c'}, kDescriptorLength,
                                       {itemLength("TPrefetchDescriptorItem", 0), invalidItem("TPrefetchDescriptor")});
    expectRefused<TPrefetchDescriptor>(
        {0x07, 5, 'a', 'b'}, kDescriptorLength,
        {kStringLine + "5 > 2. Aborting!", "ISDBTUtils: TPrefetchDescriptorItem:: parse: ERROR: parsing Label. Aborting!",
         invalidItem("TPrefetchDescriptor")});
    expectRefused<TDIILocationDescriptor>({0x01, 0, 1, 0, 0x40, 0, 2}, kDescriptorLength,
                                          {itemLength("TDIILocationDescriptorItem", 2),
                                           invalidItem("TDIILocationDescriptor")});
}

TEST(GingaApplicationDescriptor, ParametersInBothForms)
{
    LogCapture log;
    Parsed<TGingaJavaApplicationDescriptor> java({3, 'a', '=', '1', 0, 2, '-', 'v'});
    ASSERT_TRUE(java.decoded(8u));
    EXPECT_EQ(java.object->getDescriptorTag(), 0x03);
    ASSERT_EQ(java.object->size(), 3u);
    EXPECT_EQ(java.object->get(0), "a=1");
    EXPECT_EQ(java.object->get(1), "");
    EXPECT_EQ(java.object->get(2), "-v");
    EXPECT_EQ(java.object->get(3), "");
    TGingaJavaApplicationDescriptor javaCopy(java.object.get());
    java.object.reset();
    EXPECT_EQ(javaCopy.get(2), "-v");
    EXPECT_TRUE(javaCopy.remove(0));
    EXPECT_FALSE(javaCopy.remove(2));
    javaCopy.add("x");
    EXPECT_EQ(javaCopy.get(2), "x");

    Parsed<TGingaNCLApplicationDescriptor> ncl(Bytes{});
    ASSERT_TRUE(ncl.decoded(0u));
    EXPECT_EQ(ncl.object->getDescriptorTag(), 0x06);
    EXPECT_EQ(ncl.object->size(), 0u);
    EXPECT_NO_LOG(log);

    expectRefused<TGingaNCLApplicationDescriptor>(
        {1, 'a', 4, 'b'}, kString,
        {kStringLine + "4 > 1. Aborting!",
         "ISDBTUtils: TGingaApplicationDescriptor:: parse: ERROR: parsing Parameter. Aborting!"});
}

TEST(GingaApplicationLocationDescriptor, DirectoryClasspathAndInitialClass)
{
    LogCapture log;
    // The reported length counts the classpath twice and the initial class never.
    Parsed<TGingaJavaApplicationLocationDescriptor> java({1, '/', 3, 'l', 'i', 'b', 'M', 'a', 'i', 'n'});
    ASSERT_TRUE(java.decoded(7u));
    EXPECT_EQ(java.object->getBaseDirectory(), "/");
    EXPECT_EQ(java.object->getClasspathExtension(), "lib");
    EXPECT_EQ(java.object->getInitialClass(), "Main");
    TGingaJavaApplicationLocationDescriptor copy(java.object.get());
    java.object.reset();
    EXPECT_EQ(copy.getDescriptorTag(), 0x04);
    EXPECT_EQ(copy.getInitialClass(), "Main");

    // The entry document fills the rest, with no length byte of its own.
    Parsed<TGingaNCLApplicationLocationDescriptor> ncl({0, 0, 'm', 'a', 'i', 'n', '.', 'n', 'c', 'l'});
    ASSERT_TRUE(ncl.decoded(0u));
    EXPECT_EQ(ncl.object->getDescriptorTag(), 0x07);
    EXPECT_EQ(ncl.object->getInitialClass(), "main.ncl");
    EXPECT_EQ(ncl.object->getBaseDirectory(), "");

    Parsed<TGingaNCLApplicationLocationDescriptor> noClass({2, '/', 'a', 1, 'b'});
    ASSERT_TRUE(noClass.decoded(3u));
    EXPECT_EQ(noClass.object->getInitialClass(), "");
    EXPECT_EQ(TGingaNCLApplicationLocationDescriptor("/", "", "x.ncl").getInitialClass(), "x.ncl");
    EXPECT_NO_LOG(log);

    expectRefused<TGingaJavaApplicationLocationDescriptor>(
        {4, 'a', 'b', 'c'}, kDescriptorLength, {kLocationLine + "Longer data length is required: 3 < 4. Aborting!"});
    expectRefused<TGingaJavaApplicationLocationDescriptor>(
        {0, 4, 'a', 'b'}, kDescriptorLength, {kLocationLine + "Longer data length is required: 2 < 4. Aborting!"});
    // The base directory takes every byte: classpath_extension_length would
    // come from past the descriptor, and the buffer ends there.
    expectRefused<TGingaJavaApplicationLocationDescriptor>(
        {3, 'a', 'b', 'c'}, kDescriptorLength, {kLocationLine + "Longer data length is required: 0 < 1. Aborting!"});
    // Inside a larger buffer that byte is read and the count wraps: the
    // initial class would then run to the end of memory and stops at the
    // buffer's end.
    expectRefusedWithin<TGingaJavaApplicationLocationDescriptor>(
        {0x04, 4, 3, 'a', 'b', 'c', 0, 'x'}, 6, kDescriptorLength,
        {kLocationLine + "Longer data length is required: 1 < 4294967295. Aborting!"});

    ExactBuffer one({1});
    U16 code = 0;
    TGingaJavaApplicationLocationDescriptor direct("", "", "");
    LogCapture directLog;
    EXPECT_FALSE(direct.parseData(one.data(), one.size(), nullptr, &code));
    EXPECT_EQ(code, kDataLength);
    EXPECT_WARNINGS(directLog, kLocationLine + "Item length not valid: 1. Aborting!");
}
