#include "TConditionalPlaybackDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

namespace {
const U32 kFixedLength = 4;
}

TConditionalPlaybackDescriptor::TConditionalPlaybackDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iCASystemID(0), m_iCAPID(0), m_iPrivateDataSize(0),
      m_pPrivateData(nullptr)
{
}

TConditionalPlaybackDescriptor::~TConditionalPlaybackDescriptor()
{
    freeBlock(m_pPrivateData);
}

TConditionalPlaybackDescriptor* TConditionalPlaybackDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                      U32* parsedLength, U16* errorCode)
{
    return parseDescriptor<TConditionalPlaybackDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                           nullptr);
}

TConditionalPlaybackDescriptor* TConditionalPlaybackDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                      U32* parsedLength, U16* errorCode,
                                                                      const U8* limit)
{
    return parseDescriptor<TConditionalPlaybackDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                           limit);
}

BOOL TConditionalPlaybackDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength,
                                               U16* errorCode)
{
    const U8* body = m_pData + COMMON_HEADER_LENGTH;
    if (!copyBlockAfterFields(m_pData, dataLength, kFixedLength, limit, m_pPrivateData, m_iPrivateDataSize, errorCode))
        return FALSE;
    m_iCASystemID = readU16(body);
    m_iCAPID = static_cast<U16>(((body[2] & 0x1F) << 8) | body[3]);
    parsedLength = dataLength - COMMON_HEADER_LENGTH;
    return TRUE;
}

} // namespace Vuro
