#ifndef VURO_TSCHEDULE_INFO_H
#define VURO_TSCHEDULE_INFO_H

#include "../utils/VuroISDBTUtils.h"

namespace Vuro {

/// One broadcast period of a download content entry: start_time (40, MJD and
/// BCD hh mm ss) duration (24, BCD hh mm ss).
class TScheduleInfo {
public:
    TScheduleInfo();
    virtual ~TScheduleInfo();

    /// *itemLength receives 8.
    static TScheduleInfo* parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode);
    static TScheduleInfo* parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode,
                                const U8* limit);

    /// Seconds since 1970-01-01 00:00 UTC.
    S32 getStartTime() const { return m_iStartTime; }
    /// The six BCD digits hhmmss exactly as carried (0x013000 is 1 h 30 min).
    U32 getDuration() const { return m_iDuration; }

private:
    VURO_S32 m_iStartTime;
    VURO_U32 m_iDuration;
};

} // namespace Vuro

#endif
