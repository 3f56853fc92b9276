#include "TTargetRegionDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

TTargetRegionDescriptor::TTargetRegionDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iRegionSpecType(0), m_iSpecSize(0), m_pSpec(nullptr)
{
}

TTargetRegionDescriptor::~TTargetRegionDescriptor()
{
    freeBlock(m_pSpec);
}

TTargetRegionDescriptor* TTargetRegionDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                        U16* errorCode)
{
    return parseDescriptor<TTargetRegionDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TTargetRegionDescriptor* TTargetRegionDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                        U16* errorCode, const U8* limit)
{
    return parseDescriptor<TTargetRegionDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TTargetRegionDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    const U8* body = m_pData + COMMON_HEADER_LENGTH;
    if (!copyBlockAfterFields(m_pData, dataLength, 1, limit, m_pSpec, m_iSpecSize, errorCode))
        return FALSE;
    m_iRegionSpecType = body[0];
    parsedLength = dataLength - COMMON_HEADER_LENGTH;
    return TRUE;
}

} // namespace Vuro
