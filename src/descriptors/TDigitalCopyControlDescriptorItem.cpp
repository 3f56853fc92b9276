#include "TDigitalCopyControlDescriptorItem.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

TDigitalCopyControlDescriptorItem::TDigitalCopyControlDescriptorItem()
    : m_iComponentTag(0), m_iDigitalRecCtrlData(0), m_bMaximumBitrate(FALSE), m_iCopyControlType(0),
      m_iAPSControlData(0), m_iMaximumBitrate(0)
{
}

TDigitalCopyControlDescriptorItem::~TDigitalCopyControlDescriptorItem() = default;

TDigitalCopyControlDescriptorItem* TDigitalCopyControlDescriptorItem::parse(U8* sectionData, U32 dataLength,
                                                                            U32* itemLength, U16* errorCode)
{
    return parse(sectionData, dataLength, itemLength, errorCode, outerLimit(sectionData, dataLength));
}

TDigitalCopyControlDescriptorItem* TDigitalCopyControlDescriptorItem::parse(U8* sectionData, U32 dataLength,
                                                                            U32* itemLength, U16* errorCode,
                                                                            const U8* limit)
{
    if (dataLength == 0 || !fits(sectionData, limit, 1)) {
        VURO_LOGW("%s: TDigitalCopyControlDescriptorItem::parse: Item length not valid: %u. Aborting!",
                  VURO_LOG_ORIGIN, dataLength == 0 ? 0 : bytesLeft(sectionData, limit));
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    const U8 flags = sectionData[0];
    const BOOL maximumBitrate = (flags & 0x20) != 0;
    // A set flag needs the bitrate byte: missing from the entry it is the
    // descriptor-length failure; missing from the buffer, the entry's own.
    if (maximumBitrate && (dataLength == 1 || !fits(sectionData, limit, 2))) {
        VURO_LOGW("%s: TDigitalCopyControlDescriptorItem::parse: Longer data length is required: %u < %u. Aborting!",
                  VURO_LOG_ORIGIN, 0u, 1u);
        ISDBTUtils::setErrorCode(errorCode, dataLength == 1 ? TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH
                                                            : TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    TDigitalCopyControlDescriptorItem* item = new TDigitalCopyControlDescriptorItem();
    readCopyControlFlags(flags, item->m_iDigitalRecCtrlData, item->m_bMaximumBitrate, item->m_iCopyControlType,
                         item->m_iAPSControlData);
    U32 length = 1;
    if (maximumBitrate) {
        item->m_iMaximumBitrate = sectionData[1];
        length = 2;
    }
    if (itemLength)
        *itemLength = length;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return item;
}

} // namespace Vuro
