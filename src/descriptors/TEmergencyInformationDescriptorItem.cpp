#include "TEmergencyInformationDescriptorItem.h"

#include "../TISDBTTable.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kMinimumItemLength = 6;
const U32 kFixedLength = 4; // service_id, flags, area_code_length
} // namespace

TEmergencyInformationDescriptorItem::TEmergencyInformationDescriptorItem()
    : m_iServiceID(0), m_bStart(FALSE), m_iSignalLevel(0), m_iAreaCodeLength(0), m_pAreaCodes(nullptr)
{
}

TEmergencyInformationDescriptorItem::~TEmergencyInformationDescriptorItem()
{
    freeBlock(m_pAreaCodes);
    m_pAreaCodes = nullptr;
}

TEmergencyInformationDescriptorItem* TEmergencyInformationDescriptorItem::parse(U8* sectionData, U32 dataLength,
                                                                                U32* itemLength, U16* errorCode)
{
    return parse(sectionData, dataLength, itemLength, errorCode, outerLimit(sectionData, dataLength));
}

TEmergencyInformationDescriptorItem* TEmergencyInformationDescriptorItem::parse(U8* sectionData, U32 dataLength,
                                                                                U32* itemLength, U16* errorCode,
                                                                                const U8* limit)
{
    // The area codes are not checked against dataLength, only the 6-byte
    // minimum is; they are read while they lie inside the buffer.
    const U32 codeCount = fits(sectionData, limit, kFixedLength) ? sectionData[3] >> 1 : 0;
    const U32 length = kFixedLength + 2 * codeCount;
    if (dataLength < kMinimumItemLength || !fits(sectionData, limit, length)) {
        VURO_LOGW("%s: TEmergencyInformationDescriptorItem::parse: Item length not valid: %u. Aborting!",
                  VURO_LOG_ORIGIN, dataLength);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    TEmergencyInformationDescriptorItem* item = new TEmergencyInformationDescriptorItem();
    item->m_iServiceID = readU16(sectionData);
    item->m_bStart = (sectionData[2] & 0x80) ? TRUE : FALSE;
    item->m_iSignalLevel = static_cast<U8>((sectionData[2] & 0x40) >> 6);
    item->m_iAreaCodeLength = sectionData[3];
    if (item->m_iAreaCodeLength != 0) {
        item->m_pAreaCodes = newBlock<VURO_U16>(codeCount);
        for (U32 i = 0; i < codeCount; ++i) {
            const U8* code = sectionData + kFixedLength + 2 * i;
            item->m_pAreaCodes[i] = static_cast<U16>((code[0] << 4) | (code[1] >> 4));
        }
    }
    if (itemLength)
        *itemLength = length;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return item;
}

} // namespace Vuro
