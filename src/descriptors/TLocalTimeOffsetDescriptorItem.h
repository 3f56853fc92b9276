#ifndef VURO_TLOCAL_TIME_OFFSET_DESCRIPTOR_ITEM_H
#define VURO_TLOCAL_TIME_OFFSET_DESCRIPTOR_ITEM_H

#include "../TISDBTParseArena.h"
#include "../utils/VuroISDBTUtils.h"

namespace Vuro {

/// One region of a local time offset descriptor (13 bytes): country_code (24),
/// country_region_id (6), reserved (1), local_time_offset_polarity (1),
/// local_time_offset (16, BCD hhmm), time_of_change (40, MJD + BCD),
/// next_time_offset (16, BCD hhmm).
class TLocalTimeOffsetDescriptorItem : public TISDBTArenaObject {
public:
    TLocalTimeOffsetDescriptorItem();
    virtual ~TLocalTimeOffsetDescriptorItem();

    /// Needs more than 12 bytes and reports 13 consumed. time_of_change and
    /// next_time_offset are not decoded.
    static TLocalTimeOffsetDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode);
    static TLocalTimeOffsetDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode,
                                                 const U8* limit);

    /// The three country_code characters, zero-terminated.
    const char* getCountryCode() const { return m_sCountryCode; }
    U8 getCountryRegionID() const { return m_iCountryRegionID; }
    /// 0: local time ahead of UTC, 1: behind (1 until an item is parsed).
    U16 getLocalTimeOffsetPolarity() const { return m_iLocalTimeOffsetPolarity; }
    /// Seconds, 16-bit; see parse for how the BCD digits are weighed.
    U16 getLocalTimeOffset() const { return m_iLocalTimeOffset; }

private:
    char m_sCountryCode[4];
    VURO_U8 m_iCountryRegionID;
    VURO_U16 m_iLocalTimeOffsetPolarity;
    VURO_U16 m_iLocalTimeOffset;
    // Room for next_time_offset, which is not decoded: always 0, never read.
    [[maybe_unused]] VURO_U16 m_iNextTimeOffset;
};

} // namespace Vuro

#endif
