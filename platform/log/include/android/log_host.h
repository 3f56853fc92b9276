/*
 * Host-only extension of the log stand-in: redirect every line to a callback.
 *
 * Tests and tools install a sink to capture what the library logs. The sink
 * receives the priority, the tag and the fully formatted text (no trailing
 * newline). Passing a null sink restores the default stderr output.
 * Installing a sink and writing lines are serialised internally, so a sink is
 * never called after android_log_host_set_sink() has replaced it.
 */
#ifndef VURO_PLATFORM_ANDROID_LOG_HOST_H
#define VURO_PLATFORM_ANDROID_LOG_HOST_H

#ifdef __cplusplus
extern "C" {
#endif

typedef void (*android_log_host_sink)(int prio, const char* tag, const char* text, void* context);

void android_log_host_set_sink(android_log_host_sink sink, void* context);

#ifdef __cplusplus
}
#endif

#endif
