#include "VuroISDBTUtils.h"

#include "SectionCrc32.h"

namespace Vuro {

ISDBTUtils::ISDBTUtils() = default;

ISDBTUtils::~ISDBTUtils() = default;

void ISDBTUtils::setErrorCode(U16* errorCode, U16 code)
{
    if (errorCode)
        *errorCode = code;
}

U32 ISDBTUtils::getSectionCRC32(U8* data, U32 dataLength)
{
    return SectionCrc32::update(0xFFFFFFFFu, data, dataLength);
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
