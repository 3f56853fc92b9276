// Internal to the library: the CRC-32/MPEG-2 engines behind
// ISDBTUtils::getSectionCRC32, reachable one by one so that each can be
// checked against the others.
#ifndef VURO_SECTION_CRC32_H
#define VURO_SECTION_CRC32_H

#include <cstddef>

#include "VuroISDBTUtils.h"

namespace Vuro {
namespace SectionCrc32 {

// Each continues the running register crc (0xFFFFFFFF at the start of a
// section) over length bytes and returns the new register value.

// One byte per step, one table: the reference the faster engines must match.
U32 bytewise(U32 crc, const U8* data, std::size_t length);

// Eight bytes per step through eight tables; bytes are combined one by one,
// so the result does not depend on the host's byte order or alignment rules
// (the path on 32-bit ARM and big-endian hosts).
U32 sliced(U32 crc, const U8* data, std::size_t length);

// TRUE when this CPU runs the carry-less-multiply engine (x86-64 with
// PCLMULQDQ and SSSE3); carrylessMultiply() must only be called then.
BOOL hasCarrylessMultiply();
U32 carrylessMultiply(U32 crc, const U8* data, std::size_t length);

// The fastest engine this CPU has.
U32 update(U32 crc, const U8* data, std::size_t length);

} // namespace SectionCrc32
} // namespace Vuro

#endif
