#include "TTSInformationDescriptorItem.h"

#include "../TISDBTTable.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kFixedLength = 2; // transmission_type_info, num_of_service
}

TTSInformationDescriptorItem::TTSInformationDescriptorItem()
    : m_iTransmissionTypeInfo(0), m_iNumberOfServices(0), m_pServices(nullptr)
{
}

TTSInformationDescriptorItem::~TTSInformationDescriptorItem()
{
    freeBlock(m_pServices);
    m_pServices = nullptr;
}

TTSInformationDescriptorItem* TTSInformationDescriptorItem::parse(U8* sectionData, U32 dataLength, U32* itemLength,
                                                                  U16* errorCode)
{
    return parse(sectionData, dataLength, itemLength, errorCode, outerLimit(sectionData, dataLength));
}

TTSInformationDescriptorItem* TTSInformationDescriptorItem::parse(U8* sectionData, U32 dataLength, U32* itemLength,
                                                                  U16* errorCode, const U8* limit)
{
    // Only the two fixed bytes are checked against dataLength; the
    // service_ids are read while they lie inside the buffer.
    const U32 serviceCount = fits(sectionData, limit, kFixedLength) ? sectionData[1] : 0;
    const U32 length = kFixedLength + 2 * serviceCount;
    if (dataLength < kFixedLength || !fits(sectionData, limit, length)) {
        VURO_LOGW("%s: TTSInformationDescriptorItem::parse: Item length not valid: %u. Aborting!", VURO_LOG_ORIGIN,
                  dataLength);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    TTSInformationDescriptorItem* item = new TTSInformationDescriptorItem();
    item->m_iTransmissionTypeInfo = sectionData[0];
    item->m_iNumberOfServices = sectionData[1];
    item->m_pServices = readU16Array(sectionData + kFixedLength, serviceCount);
    if (itemLength)
        *itemLength = length;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return item;
}

} // namespace Vuro
