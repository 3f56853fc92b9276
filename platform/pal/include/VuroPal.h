/*
 * Host stand-in for the receiver platform layer (libVuroPal-2.0): mutexes.
 *
 * The ISDB-T library's event information table uses these calls in a fixed,
 * unusual sequence: it locks the handle held in a shared variable, replaces
 * that variable with freshly created handles, unlocks the new handle (never
 * locked) and later destroys whatever handles the variables hold, including
 * ones created by other tables, while the handle it locked is never unlocked
 * nor destroyed. A mutex per handle would deadlock the second parse and leak
 * the locked one. This stand-in is built so that sequence is harmless:
 *
 *  - A handle is an opaque token with no memory or OS object behind it, so a
 *    handle that is overwritten, destroyed twice or never destroyed leaks
 *    nothing, and a stale handle is never dereferenced.
 *  - All handles lock one process-wide recursive lock. VUROMutex_lock on any
 *    handle (a null or destroyed one included) blocks until no other thread
 *    holds it; VUROMutex_unlock on any handle releases one level if, and only
 *    if, the calling thread holds it. Lock on one handle and unlock on another
 *    from the same thread therefore still serialise concurrent callers, and an
 *    unlock from a thread that does not hold the lock changes nothing.
 *
 * Return values: 0 on success, -1 on a usage error (unlock by a thread that
 * does not hold the lock, destroy of a null address or an already-destroyed
 * handle). VUROMutex_create never returns NULL; its attribute is ignored.
 */
#ifndef VURO_PLATFORM_VUROPAL_H
#define VURO_PLATFORM_VUROPAL_H

#ifdef __cplusplus
extern "C" {
#endif

typedef void* VUROMutex;

VUROMutex VUROMutex_create(unsigned int attributes);
int VUROMutex_lock(VUROMutex mutex);
int VUROMutex_unlock(VUROMutex mutex);
int VUROMutex_destroy(VUROMutex* mutex);

#ifdef __cplusplus
}
#endif

#endif
