#include "TCompatibilityDescriptor.h"

#include "../TISDBTTable.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kCountOffset = 2;  // after compatibilityDescriptorLength
const U32 kItemsOffset = 4;  // after descriptorCount
} // namespace

TCompatibilityDescriptor::TCompatibilityDescriptor() = default;

TCompatibilityDescriptor::~TCompatibilityDescriptor() = default;

TCompatibilityDescriptor* TCompatibilityDescriptor::parse(VURO_U8* data, VURO_U32 dataLength,
                                                          VURO_U32* parsedLength, VURO_U16* errorCode)
{
    return parse(data, dataLength, parsedLength, errorCode, outerLimit(data, dataLength));
}

TCompatibilityDescriptor* TCompatibilityDescriptor::parse(VURO_U8* data, VURO_U32 dataLength,
                                                          VURO_U32* parsedLength, VURO_U16* errorCode,
                                                          const U8* limit)
{
    TCompatibilityDescriptor* descriptor = new TCompatibilityDescriptor();
    // descriptorCount is read whatever dataLength says; only the buffer
    // bounds it.
    if (!fits(data, limit, kItemsOffset)) {
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
        delete descriptor;
        return nullptr;
    }
    const U16 descriptorCount = readU16(data + kCountOffset);
    // Each entry is handed every byte left after the count (a wrapped count
    // when the length given is under 4 or an entry overruns it); entries
    // stop at the end of the buffer.
    U8* position = data + kItemsOffset;
    U32 walked = 0;
    for (U16 i = 0; i < descriptorCount; ++i) {
        U32 itemLength = 0;
        TCompatibilityDescriptorItem* item = TCompatibilityDescriptorItem::parse(
            position, dataLength - kItemsOffset - walked, &itemLength, errorCode, limit);
        if (!item) {
            VURO_LOGW("%s: TCompatibilityDescriptor::parse: Invalid item. Aborting!", VURO_LOG_ORIGIN);
            ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_ITEM);
            delete descriptor;
            return nullptr;
        }
        descriptor->m_pItems.add(item);
        position += itemLength;
        walked += itemLength;
    }
    if (parsedLength)
        *parsedLength = kCountOffset + walked;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return descriptor;
}

} // namespace Vuro
