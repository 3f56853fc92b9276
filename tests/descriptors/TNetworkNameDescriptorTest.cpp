#include <gtest/gtest.h>

#include <descriptors/TNetworkNameDescriptor.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

TEST(NetworkNameDescriptor, TheWholeBodyIsTheName)
{
    LogCapture log;
    ExactBuffer data(descriptor(0x40, {'R', 'e', 'd', 'e', ' ', 'V', 'u', 'R', 'O', 0x00, 0xE9}));
    U32 parsed = 0;
    U16 code = 0xBEEF;
    TNetworkNameDescriptor* d = TNetworkNameDescriptor::parse(data.data(), data.size(), &parsed, &code);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(parsed, 11u);
    // Raw bytes, a zero byte included.
    EXPECT_EQ(d->getNetworkName(), std::string("Rede VuRO\0\xE9", 11));
    EXPECT_EQ(d->getData(), data.data());
    EXPECT_NO_LOG(log);
    delete d;
}

TEST(NetworkNameDescriptor, AnEmptyNameIsUnderTheMinimum)
{
    LogCapture log;
    ExactBuffer data(descriptor(0x40, {}));
    U16 code = 0;
    EXPECT_EQ(TNetworkNameDescriptor::parse(data.data(), data.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (2) Longer data length is required: 2 < 3. Aborting!");
}
