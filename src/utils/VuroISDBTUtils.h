#ifndef VURO_ISDBT_UTILS_H
#define VURO_ISDBT_UTILS_H

#include <cstdint>

namespace Vuro {

typedef std::uint8_t VURO_U8;
typedef std::uint16_t VURO_U16;
typedef std::uint32_t VURO_U32;
typedef std::int32_t VURO_S32;
typedef std::int32_t VURO_BOOL; ///< truth value: results are 1 or 0, arguments test non-zero

typedef VURO_U8 U8;
typedef VURO_U16 U16;
typedef VURO_U32 U32;
typedef VURO_S32 S32;
typedef VURO_BOOL BOOL;

#ifndef TRUE
static constexpr BOOL TRUE = 1;
#endif
#ifndef FALSE
static constexpr BOOL FALSE = 0;
#endif

/// Stateless helpers shared by every parser and offered to callers.
class ISDBTUtils {
public:
    /// Modified Julian Date of 1970-01-01.
    static constexpr VURO_S32 MJD_1970 = 40587;

    ISDBTUtils();
    virtual ~ISDBTUtils();

    /// Stores code through errorCode; a null errorCode is ignored.
    static void setErrorCode(U16* errorCode, U16 code);

    /// MPEG-2 section CRC-32 (polynomial 0x04C11DB7, initial 0xFFFFFFFF, no
    /// reflection, no final xor). 0 over an intact section including its CRC_32.
    static U32 getSectionCRC32(U8* data, U32 dataLength);

    /// Seconds since 1970-01-01 00:00 UTC of the MJD's midnight; 0 up to and
    /// including MJD_1970. Computed in 32 bits: from MJD 65443 on it wraps to
    /// negative values, as the signed 32-bit time type does on the receiver.
    static S32 mjd2unix(U16 mjd);

    /// (bcd >> 4) * 10 + (bcd & 0x0F); nibbles above 9 are not rejected.
    static U8 bcd2U8(U8 bcd);
};

} // namespace Vuro

#endif
