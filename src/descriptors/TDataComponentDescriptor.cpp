#include "TDataComponentDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

TDataComponentDescriptor::TDataComponentDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iDataComponentID(0), m_iAdditionalDataSize(0),
      m_pAdditionalData(nullptr)
{
}

TDataComponentDescriptor::~TDataComponentDescriptor()
{
    freeBlock(m_pAdditionalData);
}

TDataComponentDescriptor* TDataComponentDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                          U16* errorCode)
{
    return parseDescriptor<TDataComponentDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TDataComponentDescriptor* TDataComponentDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                          U16* errorCode, const U8* limit)
{
    return parseDescriptor<TDataComponentDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TDataComponentDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    const U8* body = m_pData + COMMON_HEADER_LENGTH;
    if (!copyBlockAfterFields(m_pData, dataLength, 2, limit, m_pAdditionalData, m_iAdditionalDataSize, errorCode))
        return FALSE;
    m_iDataComponentID = readU16(body);
    parsedLength = dataLength - COMMON_HEADER_LENGTH;
    return TRUE;
}

} // namespace Vuro
