#include "TExternalApplicationAuthorizationDescriptorItem.h"

#include "../TISDBTTable.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kItemLength = 7;
} // namespace

TExternalApplicationAuthorizationDescriptorItem::TExternalApplicationAuthorizationDescriptorItem()
    : m_pAppIdentifier(nullptr), m_iPriority(0)
{
}

TExternalApplicationAuthorizationDescriptorItem::TExternalApplicationAuthorizationDescriptorItem(
    TExternalApplicationAuthorizationDescriptorItem* source)
    : m_pAppIdentifier(source && source->m_pAppIdentifier ? new TApplicationIdentifier(source->m_pAppIdentifier)
                                                          : nullptr),
      m_iPriority(source ? source->m_iPriority : 0)
{
}

TExternalApplicationAuthorizationDescriptorItem::~TExternalApplicationAuthorizationDescriptorItem()
{
    delete m_pAppIdentifier;
}

TExternalApplicationAuthorizationDescriptorItem* TExternalApplicationAuthorizationDescriptorItem::parse(
    U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode)
{
    return parse(sectionData, dataLength, itemLength, errorCode, outerLimit(sectionData, dataLength));
}

TExternalApplicationAuthorizationDescriptorItem* TExternalApplicationAuthorizationDescriptorItem::parse(
    U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode, const U8* limit)
{
    if (dataLength < kItemLength || !fits(sectionData, limit, kItemLength)) {
        VURO_LOGW("%s: TExternalApplicationAuthorizationDescriptorItem::parse: Item length not valid: %u. Aborting!",
                  VURO_LOG_ORIGIN, dataLength < kItemLength ? dataLength : bytesLeft(sectionData, limit));
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    TExternalApplicationAuthorizationDescriptorItem* item = new TExternalApplicationAuthorizationDescriptorItem();
    item->m_pAppIdentifier = TApplicationIdentifier::parse(sectionData, dataLength, FALSE, nullptr, errorCode, limit);
    if (!item->m_pAppIdentifier) {
        delete item; // the identifier has logged and stored its code
        return nullptr;
    }
    item->m_iPriority = sectionData[TApplicationIdentifier::MINIMUM_DESCRIPTOR_LENGTH];
    if (itemLength)
        *itemLength = kItemLength;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return item;
}

} // namespace Vuro
