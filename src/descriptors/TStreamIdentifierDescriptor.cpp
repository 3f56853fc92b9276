#include "TStreamIdentifierDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

TStreamIdentifierDescriptor::TStreamIdentifierDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iComponentTag(0)
{
}

TStreamIdentifierDescriptor::~TStreamIdentifierDescriptor() = default;

TStreamIdentifierDescriptor* TStreamIdentifierDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                U32* parsedLength, U16* errorCode)
{
    return parseDescriptor<TStreamIdentifierDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TStreamIdentifierDescriptor* TStreamIdentifierDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                U32* parsedLength, U16* errorCode,
                                                                const U8* limit)
{
    return parseDescriptor<TStreamIdentifierDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TStreamIdentifierDescriptor::parseBody(U32, const U8* limit, U32& parsedLength, U16* errorCode)
{
    const U8* body = m_pData + COMMON_HEADER_LENGTH;
    if (!descriptorBytesInBuffer(body, limit, 1, errorCode))
        return FALSE;
    m_iComponentTag = body[0];
    parsedLength = 1;
    return TRUE;
}

} // namespace Vuro
