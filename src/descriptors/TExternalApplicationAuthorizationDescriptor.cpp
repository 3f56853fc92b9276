#include "TExternalApplicationAuthorizationDescriptor.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

TExternalApplicationAuthorizationDescriptor::TExternalApplicationAuthorizationDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length)
{
}

TExternalApplicationAuthorizationDescriptor::TExternalApplicationAuthorizationDescriptor(
    TExternalApplicationAuthorizationDescriptor* source)
    : TISDBTDescriptor(DESCRIPTOR_TAG, nullptr, 0)
{
    if (!source)
        return;
    for (const auto& entry : source->m_pItems.items())
        m_pItems.add(entry.first, new TExternalApplicationAuthorizationDescriptorItem(entry.second));
}

TExternalApplicationAuthorizationDescriptor::~TExternalApplicationAuthorizationDescriptor() = default;

TExternalApplicationAuthorizationDescriptor* TExternalApplicationAuthorizationDescriptor::parse(
    U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode)
{
    return parseDescriptor<TExternalApplicationAuthorizationDescriptor>(sectionData, dataLength, parsedLength,
                                                                        errorCode, nullptr);
}

TExternalApplicationAuthorizationDescriptor* TExternalApplicationAuthorizationDescriptor::parse(
    U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode, const U8* limit)
{
    return parseDescriptor<TExternalApplicationAuthorizationDescriptor>(sectionData, dataLength, parsedLength,
                                                                        errorCode, limit);
}

void TExternalApplicationAuthorizationDescriptor::add(TExternalApplicationAuthorizationDescriptorItem* item)
{
    if (item)
        m_pItems.add(TApplicationIdentifier::calculateHashID(item->getApplicationIdentifier()), item);
}

BOOL TExternalApplicationAuthorizationDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength,
                                                            U16* errorCode)
{
    U8* position = m_pData + COMMON_HEADER_LENGTH;
    U32 remaining = dataLength - COMMON_HEADER_LENGTH;
    // One application twice: the later wins and the earlier is freed.
    if (!parseItemsToEnd<TExternalApplicationAuthorizationDescriptorItem>(
            position, remaining, limit, parsedLength, errorCode,
            [this](TExternalApplicationAuthorizationDescriptorItem* item, U32) {
                m_pItems.store(TApplicationIdentifier::calculateHashID(item->getApplicationIdentifier()), item);
            })) {
        VURO_LOGW("%s: TExternalApplicationAuthorizationDescriptor::parse: Invalid item. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
        return FALSE;
    }
    return TRUE;
}

} // namespace Vuro
