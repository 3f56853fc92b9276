#include "LogCapture.h"

#include <android/log_host.h>

namespace VuroTest {

LogCapture::LogCapture()
{
    android_log_host_set_sink(&LogCapture::sink, this);
}

LogCapture::~LogCapture()
{
    android_log_host_set_sink(nullptr, nullptr);
}

std::vector<std::string> LogCapture::texts() const
{
    std::vector<std::string> result;
    for (const LogLine& line : m_lines)
        result.push_back(line.text);
    return result;
}

void LogCapture::sink(int priority, const char* tag, const char* text, void* context)
{
    static_cast<LogCapture*>(context)->m_lines.push_back(LogLine{priority, tag, text});
}

} // namespace VuroTest
