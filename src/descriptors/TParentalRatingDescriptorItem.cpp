#include "TParentalRatingDescriptorItem.h"

#include "../TISDBTTable.h"
#include "../utils/ParserUtils.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kItemLength = 4;
const U32 kCountryCodeLength = 3;
} // namespace

TParentalRatingDescriptorItem::TParentalRatingDescriptorItem() : m_iRating(0), m_iRatingContent(0)
{
}

TParentalRatingDescriptorItem::~TParentalRatingDescriptorItem() = default;

TParentalRatingDescriptorItem* TParentalRatingDescriptorItem::parse(U8* sectionData, U32 dataLength,
                                                                    U32* itemLength, U16* errorCode)
{
    return parse(sectionData, dataLength, itemLength, errorCode, outerLimit(sectionData, dataLength));
}

TParentalRatingDescriptorItem* TParentalRatingDescriptorItem::parse(U8* sectionData, U32 dataLength,
                                                                    U32* itemLength, U16* errorCode,
                                                                    const U8* limit)
{
    if (dataLength < kItemLength || !fits(sectionData, limit, kItemLength)) {
        VURO_LOGW("%s: TParentalRatingDescriptorItem::parse: Descriptor length not valid: %u. Aborting!",
                  VURO_LOG_ORIGIN, dataLength);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    TParentalRatingDescriptorItem* item = new TParentalRatingDescriptorItem();
    if (ParserUtils::parseStr(sectionData, item->m_sCountryCode, kCountryCodeLength, dataLength) !=
        static_cast<S32>(kCountryCodeLength)) {
        VURO_LOGW("%s: TParentalRatingDescriptorItem:: parse: ERROR: parsing Language Code. Aborting!",
                  VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
        delete item;
        return nullptr;
    }
    const U8 rating = sectionData[kCountryCodeLength];
    item->m_iRating = rating & 0x0F;
    item->m_iRatingContent = static_cast<U8>(rating >> 4);
    if (itemLength)
        *itemLength = kItemLength;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return item;
}

} // namespace Vuro
