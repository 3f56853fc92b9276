/*
 * Host stand-in for the Android log library (liblog).
 *
 * Same priorities and entry point as the device's <android/log.h>; lines go
 * to stderr in logcat's "brief" layout unless a host sink is installed
 * (see <android/log_host.h>).
 */
#ifndef VURO_PLATFORM_ANDROID_LOG_H
#define VURO_PLATFORM_ANDROID_LOG_H

#include <stdarg.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef enum android_LogPriority {
    ANDROID_LOG_UNKNOWN = 0,
    ANDROID_LOG_DEFAULT,
    ANDROID_LOG_VERBOSE,
    ANDROID_LOG_DEBUG,
    ANDROID_LOG_INFO,
    ANDROID_LOG_WARN,
    ANDROID_LOG_ERROR,
    ANDROID_LOG_FATAL,
    ANDROID_LOG_SILENT
} android_LogPriority;

int __android_log_write(int prio, const char* tag, const char* text);

int __android_log_print(int prio, const char* tag, const char* fmt, ...)
#if defined(__GNUC__)
    __attribute__((format(printf, 3, 4)))
#endif
    ;

int __android_log_vprint(int prio, const char* tag, const char* fmt, va_list ap)
#if defined(__GNUC__)
    __attribute__((format(printf, 3, 0)))
#endif
    ;

#ifdef __cplusplus
}
#endif

#endif
