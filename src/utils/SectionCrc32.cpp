#include "SectionCrc32.h"

#include <array>

#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
#define VURO_CRC32_CLMUL 1
#include <immintrin.h>
#endif

namespace Vuro {
namespace SectionCrc32 {

namespace {

// Generator polynomial, most significant bit first (x^32 implied).
constexpr U32 kPolynomial = 0x04C11DB7u;

using Table = std::array<U32, 256>;

// kTables[0][b]: the register after one byte b entering an empty register;
// kTables[k][b]: the same followed by k zero bytes.
constexpr std::array<Table, 8> makeTables()
{
    std::array<Table, 8> tables{};
    for (U32 i = 0; i < 256; ++i) {
        U32 crc = i << 24;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 0x80000000u) ? (crc << 1) ^ kPolynomial : (crc << 1);
        tables[0][i] = crc;
    }
    for (std::size_t k = 1; k < tables.size(); ++k)
        for (U32 i = 0; i < 256; ++i)
            tables[k][i] = (tables[k - 1][i] << 8) ^ tables[0][tables[k - 1][i] >> 24];
    return tables;
}

constexpr std::array<Table, 8> kTables = makeTables();
static_assert(kTables[0][1] == kPolynomial, "CRC table entry 1 is the generator polynomial");

inline U32 step(U32 crc, U8 byte)
{
    return kTables[0][((crc >> 24) ^ byte) & 0xFFu] ^ (crc << 8);
}

#ifdef VURO_CRC32_CLMUL

// x^n mod P, the factors that move a 64-bit half of a 128-bit block n bits
// further along the message.
constexpr unsigned long long xPowerModP(unsigned n)
{
    unsigned long long r = 1;
    for (unsigned i = 0; i < n; ++i) {
        r <<= 1;
        if (r & 0x100000000ull)
            r ^= 0x100000000ull | kPolynomial;
    }
    return r;
}

// The message is read as one polynomial, first byte highest: each 16-byte
// block is byte-reversed into a 128-bit integer whose bit i is the
// coefficient of x^i. Folding a block A = Ahi x^64 + Alo forward by n bits
// replaces it with Ahi (x^(n+64) mod P) + Alo (x^n mod P), a value of at
// most 95 bits congruent to A x^n modulo P, and adds the block found there.
__attribute__((target("pclmul,ssse3"))) inline __m128i fold(__m128i block, __m128i factors, __m128i next)
{
    const __m128i high = _mm_clmulepi64_si128(block, factors, 0x11);
    const __m128i low = _mm_clmulepi64_si128(block, factors, 0x00);
    return _mm_xor_si128(_mm_xor_si128(high, low), next);
}

__attribute__((target("pclmul,ssse3"))) inline __m128i load(const U8* data, __m128i reverse)
{
    return _mm_shuffle_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(data)), reverse);
}

#endif

} // namespace

U32 bytewise(U32 crc, const U8* data, std::size_t length)
{
    for (std::size_t i = 0; i < length; ++i)
        crc = step(crc, data[i]);
    return crc;
}

U32 sliced(U32 crc, const U8* data, std::size_t length)
{
    for (; length >= 8; data += 8, length -= 8) {
        const U32 first = crc ^ (static_cast<U32>(data[0]) << 24 | static_cast<U32>(data[1]) << 16 |
                                 static_cast<U32>(data[2]) << 8 | data[3]);
        crc = kTables[7][first >> 24] ^ kTables[6][(first >> 16) & 0xFFu] ^ kTables[5][(first >> 8) & 0xFFu] ^
              kTables[4][first & 0xFFu] ^ kTables[3][data[4]] ^ kTables[2][data[5]] ^ kTables[1][data[6]] ^
              kTables[0][data[7]];
    }
    return bytewise(crc, data, length);
}

#ifdef VURO_CRC32_CLMUL

BOOL hasCarrylessMultiply()
{
    static const BOOL has = [] {
        __builtin_cpu_init();
        return __builtin_cpu_supports("pclmul") && __builtin_cpu_supports("ssse3") ? TRUE : FALSE;
    }();
    return has;
}

__attribute__((target("pclmul,ssse3"))) U32 carrylessMultiply(U32 crc, const U8* data, std::size_t length)
{
    if (length < 64)
        return sliced(crc, data, length);
    const __m128i reverse = _mm_set_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
    const __m128i by512 = _mm_set_epi64x(static_cast<long long>(xPowerModP(512 + 64)),
                                         static_cast<long long>(xPowerModP(512)));
    const __m128i by128 = _mm_set_epi64x(static_cast<long long>(xPowerModP(128 + 64)),
                                         static_cast<long long>(xPowerModP(128)));

    // A register value c before the message equals c added to the message's
    // first 32 bits with an empty register.
    __m128i a = _mm_xor_si128(load(data, reverse), _mm_set_epi32(static_cast<int>(crc), 0, 0, 0));
    __m128i b = load(data + 16, reverse);
    __m128i c = load(data + 32, reverse);
    __m128i d = load(data + 48, reverse);
    data += 64;
    length -= 64;
    for (; length >= 64; data += 64, length -= 64) {
        a = fold(a, by512, load(data, reverse));
        b = fold(b, by512, load(data + 16, reverse));
        c = fold(c, by512, load(data + 32, reverse));
        d = fold(d, by512, load(data + 48, reverse));
    }
    a = fold(fold(fold(a, by128, b), by128, c), by128, d);
    for (; length >= 16; data += 16, length -= 16)
        a = fold(a, by128, load(data, reverse));

    // The register for the folded 128 bits is a x^32 mod P: what the table
    // engine gives for those 16 bytes (most significant first) from an empty
    // register; the bytes left over follow.
    alignas(16) U8 rest[16];
    _mm_store_si128(reinterpret_cast<__m128i*>(rest), _mm_shuffle_epi8(a, reverse));
    return sliced(sliced(0, rest, sizeof rest), data, length);
}

#else

BOOL hasCarrylessMultiply()
{
    return FALSE;
}

U32 carrylessMultiply(U32 crc, const U8* data, std::size_t length)
{
    return sliced(crc, data, length);
}

#endif

U32 update(U32 crc, const U8* data, std::size_t length)
{
    return hasCarrylessMultiply() ? carrylessMultiply(crc, data, length) : sliced(crc, data, length);
}

} // namespace SectionCrc32
} // namespace Vuro
