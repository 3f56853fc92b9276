#include "TPrefetchDescriptorItem.h"

#include "../TISDBTTable.h"
#include "../utils/ParserUtils.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kMinimumLength = 2;

TPrefetchDescriptorItem* tooShort(U32 value, U16* errorCode)
{
    VURO_LOGW("%s: TPrefetchDescriptorItem::parse: Item length not valid: %u. Aborting!", VURO_LOG_ORIGIN, value);
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    return nullptr;
}
} // namespace

TPrefetchDescriptorItem::TPrefetchDescriptorItem() : m_iPriority(0)
{
}

TPrefetchDescriptorItem::~TPrefetchDescriptorItem() = default;

TPrefetchDescriptorItem* TPrefetchDescriptorItem::parse(U8* sectionData, U32 dataLength, U32* itemLength,
                                                        U16* errorCode)
{
    return parse(sectionData, dataLength, itemLength, errorCode, outerLimit(sectionData, dataLength));
}

TPrefetchDescriptorItem* TPrefetchDescriptorItem::parse(U8* sectionData, U32 dataLength, U32* itemLength,
                                                        U16* errorCode, const U8* limit)
{
    // The fields are read inside dataLength, which must lie inside the buffer.
    if (dataLength < kMinimumLength)
        return tooShort(dataLength, errorCode);
    if (!fits(sectionData, limit, dataLength))
        return tooShort(bytesLeft(sectionData, limit), errorCode);
    std::string label;
    const S32 read = ParserUtils::parseStr(sectionData, label, 0, dataLength);
    if (read < 0) {
        VURO_LOGW("%s: TPrefetchDescriptorItem:: parse: ERROR: parsing Label. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
        return nullptr;
    }
    const U32 left = dataLength - static_cast<U32>(read);
    if (left == 0) // no byte left for prefetch_priority
        return tooShort(left, errorCode);
    TPrefetchDescriptorItem* item = new TPrefetchDescriptorItem();
    item->m_sLabel = label;
    item->m_iPriority = sectionData[read];
    if (itemLength)
        *itemLength = static_cast<U32>(read) + 1;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return item;
}

} // namespace Vuro
