// Internal to the library (not installed): the log-line convention and the
// bounds helpers every parser uses.
#ifndef VURO_PARSE_SUPPORT_H
#define VURO_PARSE_SUPPORT_H

#include <android/log.h>

#include <cstddef>
#include <cstring>

#include "../TISDBTParseArena.h"
#include "VuroISDBTUtils.h"

namespace Vuro {

// Every diagnostic goes to the Android log under this tag; each format starts
// with "%s: " and its first argument is VURO_LOG_ORIGIN.
#define VURO_LOG_TAG "VuRO"
#define VURO_LOG_ORIGIN "ISDBTUtils"

#define VURO_LOGW(...) __android_log_print(ANDROID_LOG_WARN, VURO_LOG_TAG, __VA_ARGS__)
#define VURO_LOGI(...) __android_log_print(ANDROID_LOG_INFO, VURO_LOG_TAG, __VA_ARGS__)
#define VURO_LOGE(...) __android_log_print(ANDROID_LOG_ERROR, VURO_LOG_TAG, __VA_ARGS__)

// Bytes that may still be read from pos before limit, the end of the buffer
// the outermost parse was handed (0 when pos is at or past it).
inline U32 bytesLeft(const U8* pos, const U8* limit)
{
    return pos < limit ? static_cast<U32>(limit - pos) : 0;
}

// True when need bytes starting at pos lie inside the buffer ending at limit.
inline bool fits(const U8* pos, const U8* limit, U32 need)
{
    return pos <= limit && static_cast<std::size_t>(limit - pos) >= need;
}

// Steps position over count bytes, stopping at limit: a record that claims
// more than the buffer holds leaves the next read at the end, where it fails.
inline void stepWithin(U8*& position, const U8* limit, U32 count)
{
    const U32 left = bytesLeft(position, limit);
    position += count < left ? count : left;
}

// The owned arrays of descriptors and their items (byte blocks, lists of
// 16-bit values) come from the parse arena like their owners: inside a parse
// they cost no heap call and go with the table; outside one (a copy) they are
// heap blocks. Free them with freeBlock, never with delete[].
template <class T>
T* newBlock(U32 count)
{
    return static_cast<T*>(ParseArena::allocate(count * sizeof(T)));
}

inline void freeBlock(const void* block)
{
    ParseArena::release(const_cast<void*>(block));
}

// Copies the count bytes at from into a new array owned by the descriptor
// (null when there is none). The size member is 8 bits wide, as the receiver
// API has always exposed it: a block over 255 bytes is copied whole and its
// size wraps.
inline void copyByteBlock(const U8* from, U32 count, VURO_U8*& block, VURO_U8& size)
{
    block = nullptr;
    size = static_cast<VURO_U8>(count);
    if (count == 0)
        return;
    block = newBlock<VURO_U8>(count);
    std::memcpy(block, from, count);
}

// True when ParserUtils::parseStr(pos, target, 0, maxLength) reads only
// bytes inside the buffer ending at limit: its length byte (when maxLength
// leaves one) and, when the string is not refused for exceeding maxLength,
// its characters.
inline bool stringFits(const U8* pos, const U8* limit, U32 maxLength)
{
    if (maxLength == 0)
        return true;
    if (!fits(pos, limit, 1))
        return false;
    return pos[0] > maxLength - 1 || fits(pos, limit, 1u + pos[0]);
}

// The limit a parse uses when it is the outermost call: the end of its own
// data (null data has no readable byte).
inline const U8* outerLimit(const U8* data, U32 dataLength)
{
    return data ? data + dataLength : nullptr;
}

inline U16 readU16(const U8* p)
{
    return static_cast<U16>((p[0] << 8) | p[1]);
}

inline U32 readU32(const U8* p)
{
    return (static_cast<U32>(p[0]) << 24) | (static_cast<U32>(p[1]) << 16) | (static_cast<U32>(p[2]) << 8) | p[3];
}

// A new array (newBlock; the caller owns it) of count big-endian 16-bit
// values read from p, or null when count is 0. The caller has checked that
// 2 x count bytes lie inside the buffer.
inline U16* readU16Array(const U8* p, U32 count)
{
    if (count == 0)
        return nullptr;
    U16* values = newBlock<U16>(count);
    for (U32 i = 0; i < count; ++i)
        values[i] = readU16(p + 2 * i);
    return values;
}

} // namespace Vuro

#endif
