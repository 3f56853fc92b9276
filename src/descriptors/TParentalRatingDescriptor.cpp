#include "TParentalRatingDescriptor.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

TParentalRatingDescriptor::TParentalRatingDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), l_pItem(nullptr)
{
}

TParentalRatingDescriptor::~TParentalRatingDescriptor() = default;

TParentalRatingDescriptor* TParentalRatingDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                            U16* errorCode)
{
    return parse(sectionData, dataLength, parsedLength, errorCode, outerLimit(sectionData, dataLength));
}

TParentalRatingDescriptor* TParentalRatingDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                            U16* errorCode, const U8* limit)
{
    if (!parseCommonHeader(sectionData, dataLength, errorCode, static_cast<U8>(MINIMUM_DESCRIPTOR_LENGTH),
                           DESCRIPTOR_TAG)) {
        VURO_LOGW("%s: TParentalRatingDescriptor::parse: parseCommonHeader: Invalid item. Aborting!",
                  VURO_LOG_ORIGIN);
        return nullptr;
    }
    return parseCheckedDescriptor<TParentalRatingDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                             limit);
}

void TParentalRatingDescriptor::add(TParentalRatingDescriptorItem** item)
{
    if (item)
        m_pItems.add(*item);
}

BOOL TParentalRatingDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    U8* position = m_pData + COMMON_HEADER_LENGTH;
    U32 remaining = dataLength - COMMON_HEADER_LENGTH;
    if (!parseItemsToEnd<TParentalRatingDescriptorItem>(
            position, remaining, limit, parsedLength, errorCode,
            [this](TParentalRatingDescriptorItem* item, U32) { m_pItems.add(item); })) {
        VURO_LOGW("%s: TParentalRatingDescriptor::parse: Invalid item. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
        return FALSE;
    }
    return TRUE;
}

} // namespace Vuro
