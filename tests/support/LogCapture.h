#ifndef VURO_TESTS_LOG_CAPTURE_H
#define VURO_TESTS_LOG_CAPTURE_H

#include <string>
#include <vector>

namespace VuroTest {

struct LogLine {
    int priority;
    std::string tag;
    std::string text;
};

// Captures every line written through the log stand-in while it lives.
class LogCapture {
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    const std::vector<LogLine>& lines() const { return m_lines; }
    std::vector<std::string> texts() const;
    void clear() { m_lines.clear(); }

private:
    static void sink(int priority, const char* tag, const char* text, void* context);
    std::vector<LogLine> m_lines;
};

} // namespace VuroTest

// Asserts that exactly these warning lines (priority 5, tag "VuRO") were logged, in order.
#define EXPECT_WARNINGS(capture, ...)                                                                         \
    do {                                                                                                      \
        const std::vector<std::string> expectedLines{__VA_ARGS__};                                            \
        EXPECT_EQ((capture).texts(), expectedLines);                                                          \
        for (const auto& line : (capture).lines()) {                                                          \
            EXPECT_EQ(line.priority, 5) << line.text;                                                         \
            EXPECT_EQ(line.tag, "VuRO") << line.text;                                                         \
        }                                                                                                     \
    } while (0)

#define EXPECT_NO_LOG(capture) EXPECT_TRUE((capture).lines().empty()) << (capture).lines().front().text

#endif
