// The library reaches the log through the dynamic symbol: a program that
// defines __android_log_print itself receives the library's lines.
#include <gtest/gtest.h>

#include <android/log.h>
#include <android/log_host.h>

#include <cstdarg>
#include <cstdio>
#include <string>
#include <vector>

#include <descriptors/TServiceListDescriptor.h>

namespace {

struct Line {
    int priority;
    std::string tag;
    std::string text;
};

std::vector<Line> g_lines;
int g_sinkCalls = 0;

void countingSink(int, const char*, const char*, void*)
{
    ++g_sinkCalls;
}

} // namespace

extern "C" int __android_log_print(int prio, const char* tag, const char* fmt, ...)
{
    char buffer[1024];
    va_list ap;
    va_start(ap, fmt);
    std::vsnprintf(buffer, sizeof buffer, fmt, ap);
    va_end(ap);
    g_lines.push_back(Line{prio, tag, buffer});
    return 1;
}

TEST(LogInterposition, TheProgramsOwnDefinitionReceivesTheLibrarysLines)
{
    android_log_host_set_sink(&countingSink, nullptr);
    Vuro::U8 data[] = {0x40, 0x00};
    Vuro::U16 code = 0;
    EXPECT_EQ(Vuro::TServiceListDescriptor::parse(data, sizeof data, nullptr, &code), nullptr);
    android_log_host_set_sink(nullptr, nullptr);

    ASSERT_EQ(g_lines.size(), 1u);
    EXPECT_EQ(g_lines[0].priority, ANDROID_LOG_WARN);
    EXPECT_EQ(g_lines[0].tag, "VuRO");
    EXPECT_EQ(g_lines[0].text, "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (2) Longer data length is "
                               "required: 2 < 4. Aborting!");
    EXPECT_EQ(g_sinkCalls, 0); // the stand-in never saw the call
}
