// Host stand-in for Android's liblog: formats a line and hands it to the
// installed host sink, or writes it to stderr the way `logcat -v brief` shows it.
#include <android/log.h>
#include <android/log_host.h>

#include <cstdio>
#include <mutex>
#include <unistd.h>

namespace {

// Same bound as the device's logger payload: longer messages are truncated.
constexpr int kMaxPayload = 4068;

std::mutex g_sinkMutex;
android_log_host_sink g_sink = nullptr;
void* g_sinkContext = nullptr;

char priorityLetter(int prio)
{
    static const char kLetters[] = "??VDIWEFS";
    return (prio >= 0 && prio <= ANDROID_LOG_SILENT) ? kLetters[prio] : '?';
}

void emit(int prio, const char* tag, const char* text)
{
    if (!tag)
        tag = "";
    std::lock_guard<std::mutex> lock(g_sinkMutex);
    if (g_sink) {
        g_sink(prio, tag, text, g_sinkContext);
        return;
    }
    std::fprintf(stderr, "%c/%-8s(%5d): %s\n", priorityLetter(prio), tag, static_cast<int>(getpid()), text);
}

} // namespace

extern "C" {

void android_log_host_set_sink(android_log_host_sink sink, void* context)
{
    std::lock_guard<std::mutex> lock(g_sinkMutex);
    g_sink = sink;
    g_sinkContext = context;
}

int __android_log_write(int prio, const char* tag, const char* text)
{
    emit(prio, tag, text ? text : "");
    return 1;
}

int __android_log_vprint(int prio, const char* tag, const char* fmt, va_list ap)
{
    if (!fmt)
        return __android_log_write(prio, tag, "");
    char buffer[kMaxPayload];
    int written = std::vsnprintf(buffer, sizeof buffer, fmt, ap);
    if (written < 0)
        return written;
    emit(prio, tag, buffer);
    return written < kMaxPayload ? written : kMaxPayload - 1;
}

int __android_log_print(int prio, const char* tag, const char* fmt, ...)
{
    va_list ap;
    va_start(ap, fmt);
    int result = __android_log_vprint(prio, tag, fmt, ap);
    va_end(ap);
    return result;
}

} // extern "C"
