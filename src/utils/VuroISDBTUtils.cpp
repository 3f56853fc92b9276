#include "VuroISDBTUtils.h"

#include <array>

namespace Vuro {

namespace {

constexpr U32 kCrcPolynomial = 0x04C11DB7u;

constexpr std::array<U32, 256> makeCrcTable()
{
    std::array<U32, 256> table{};
    for (U32 i = 0; i < 256; ++i) {
        U32 crc = i << 24;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 0x80000000u) ? (crc << 1) ^ kCrcPolynomial : (crc << 1);
        table[i] = crc;
    }
    return table;
}

constexpr std::array<U32, 256> kCrcTable = makeCrcTable();
static_assert(kCrcTable[1] == kCrcPolynomial, "CRC table entry 1 is the generator polynomial");

} // namespace

ISDBTUtils::ISDBTUtils() = default;

ISDBTUtils::~ISDBTUtils() = default;

void ISDBTUtils::setErrorCode(U16* errorCode, U16 code)
{
    if (errorCode)
        *errorCode = code;
}

U32 ISDBTUtils::getSectionCRC32(U8* data, U32 dataLength)
{
    U32 crc = 0xFFFFFFFFu;
    for (U32 i = 0; i < dataLength; ++i)
        crc = kCrcTable[((crc >> 24) ^ data[i]) & 0xFFu] ^ (crc << 8);
    return crc;
}

S32 ISDBTUtils::mjd2unix(U16 mjd)
{
    if (mjd <= MJD_1970)
        return 0;
    // 32-bit product on purpose: dates from 2038-01-19 on wrap negative.
    return static_cast<S32>(static_cast<U32>(mjd - MJD_1970) * 86400u);
}

U8 ISDBTUtils::bcd2U8(U8 bcd)
{
    return static_cast<U8>((bcd >> 4) * 10 + (bcd & 0x0F));
}

} // namespace Vuro
