#include "TScheduleInfo.h"

#include "../TISDBTTable.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kLength = 8;
} // namespace

TScheduleInfo::TScheduleInfo() : m_iStartTime(0), m_iDuration(0) {}

TScheduleInfo::~TScheduleInfo() = default;

TScheduleInfo* TScheduleInfo::parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode)
{
    return parse(sectionData, dataLength, itemLength, errorCode, outerLimit(sectionData, dataLength));
}

TScheduleInfo* TScheduleInfo::parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode,
                                    const U8* limit)
{
    if (dataLength <= 7 || !fits(sectionData, limit, kLength)) {
        VURO_LOGW("%s: TScheduleInfo::parse: Item length not valid: %u. Aborting!", VURO_LOG_ORIGIN,
                  dataLength <= 7 ? dataLength : bytesLeft(sectionData, limit));
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    TScheduleInfo* info = new TScheduleInfo();
    // Summed in 32 bits and cast, so dates past 2038 wrap as mjd2unix does.
    const U32 seconds = static_cast<U32>(ISDBTUtils::mjd2unix(readU16(sectionData))) +
                        ISDBTUtils::bcd2U8(sectionData[2]) * 3600u + ISDBTUtils::bcd2U8(sectionData[3]) * 60u +
                        ISDBTUtils::bcd2U8(sectionData[4]);
    info->m_iStartTime = static_cast<S32>(seconds);
    // The duration stays BCD-coded, unlike the start time: receivers convert
    // it where they show it; intended.
    info->m_iDuration = (static_cast<U32>(sectionData[5]) << 16) | (static_cast<U32>(sectionData[6]) << 8) |
                        sectionData[7];
    if (itemLength)
        *itemLength = kLength;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return info;
}

} // namespace Vuro
