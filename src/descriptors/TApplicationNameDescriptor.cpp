#include "TApplicationNameDescriptor.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

TApplicationNameDescriptor::TApplicationNameDescriptor() : TISDBTDescriptor(DESCRIPTOR_TAG, nullptr, 0)
{
}

TApplicationNameDescriptor::TApplicationNameDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length)
{
}

TApplicationNameDescriptor::TApplicationNameDescriptor(TApplicationNameDescriptor* source)
    : TApplicationNameDescriptor()
{
    if (!source)
        return;
    for (const auto& entry : source->m_pItems.items())
        m_pItems.add(entry.first, new TApplicationNameDescriptorItem(*entry.second));
}

TApplicationNameDescriptor::~TApplicationNameDescriptor() = default;

TApplicationNameDescriptor* TApplicationNameDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                              U16* errorCode)
{
    return parseDescriptor<TApplicationNameDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TApplicationNameDescriptor* TApplicationNameDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                              U16* errorCode, const U8* limit)
{
    return parseDescriptor<TApplicationNameDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

void TApplicationNameDescriptor::add(TApplicationNameDescriptorItem* item)
{
    if (item)
        m_pItems.add(item->getLanguageCode(), item);
}

BOOL TApplicationNameDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    U8* position = m_pData + COMMON_HEADER_LENGTH;
    U32 remaining = dataLength - COMMON_HEADER_LENGTH;
    // Two names in one language: the later wins and the earlier is freed. An
    // item's length is 8 bits wide, so a name of 252 bytes (possible only when
    // the descriptor is handed more than its 255-byte maximum) reports 0 and
    // would never move on: the loop stops there and fails like a bad item.
    BOOL stalled = FALSE;
    const BOOL parsed = parseItems<TApplicationNameDescriptorItem>(
        position, remaining, limit, parsedLength, errorCode,
        [&stalled](U32 left) { return left != 0 && !stalled; },
        [this, &stalled](TApplicationNameDescriptorItem* item, U32 itemLength) {
            m_pItems.store(item->getLanguageCode(), item);
            stalled = itemLength == 0;
        });
    if (!parsed || stalled) {
        VURO_LOGW("%s: TApplicationNameDescriptor::parse: Invalid item. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
        return FALSE;
    }
    return TRUE;
}

} // namespace Vuro
