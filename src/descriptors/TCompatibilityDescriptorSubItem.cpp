#include "TCompatibilityDescriptorSubItem.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

namespace {
const U32 kHeaderLength = 2; // subDescriptorType, subDescriptorLength

TCompatibilityDescriptorSubItem* refuseLength(U32 length, U16* errorCode)
{
    VURO_LOGW("%s: TCompatibilityDescriptorSubItem::parse: Item length not valid: %u. Aborting!", VURO_LOG_ORIGIN,
              length);
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    return nullptr;
}
} // namespace

TCompatibilityDescriptorSubItem::TCompatibilityDescriptorSubItem()
    : m_iSubDescriptorType(0), m_iAdditionalInformationLength(0), m_iAdditionalInformation(nullptr)
{
}

TCompatibilityDescriptorSubItem::~TCompatibilityDescriptorSubItem()
{
    delete[] m_iAdditionalInformation;
}

TCompatibilityDescriptorSubItem* TCompatibilityDescriptorSubItem::parse(VURO_U8* data, VURO_U32 dataLength,
                                                                        VURO_U32* parsedLength, VURO_U16* errorCode)
{
    return parse(data, dataLength, parsedLength, errorCode, outerLimit(data, dataLength));
}

TCompatibilityDescriptorSubItem* TCompatibilityDescriptorSubItem::parse(VURO_U8* data, VURO_U32 dataLength,
                                                                        VURO_U32* parsedLength, VURO_U16* errorCode,
                                                                        const U8* limit)
{
    if (dataLength <= 1)
        return refuseLength(dataLength, errorCode);
    // The information is not checked against dataLength (the entry hands
    // every byte it has left), only against the end of the buffer.
    if (!fits(data, limit, kHeaderLength) || !fits(data, limit, kHeaderLength + data[1]))
        return refuseLength(bytesLeft(data, limit), errorCode);
    TCompatibilityDescriptorSubItem* item = new TCompatibilityDescriptorSubItem();
    item->m_iSubDescriptorType = data[0];
    item->m_iAdditionalInformationLength = data[1];
    if (item->m_iAdditionalInformationLength != 0 &&
        !copyDownloadBlock(data + kHeaderLength, item->m_iAdditionalInformationLength, item->m_iAdditionalInformation,
                           "%s: TCompatibilityDescriptorSubItem:: parse: ERROR: parsing Additional Information. "
                           "Aborting!",
                           errorCode)) {
        delete item;
        return nullptr;
    }
    if (parsedLength)
        *parsedLength = kHeaderLength + item->m_iAdditionalInformationLength;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return item;
}

} // namespace Vuro
