#include "TIPSignalingDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

TIPSignalingDescriptor::TIPSignalingDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iPlatformID(0)
{
}

TIPSignalingDescriptor::TIPSignalingDescriptor(TIPSignalingDescriptor* source)
    : TISDBTDescriptor(DESCRIPTOR_TAG, nullptr, 0), m_iPlatformID(source ? source->m_iPlatformID : 0)
{
}

TIPSignalingDescriptor::~TIPSignalingDescriptor() = default;

TIPSignalingDescriptor* TIPSignalingDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                      U16* errorCode)
{
    return parseDescriptor<TIPSignalingDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TIPSignalingDescriptor* TIPSignalingDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                      U16* errorCode, const U8* limit)
{
    return parseDescriptor<TIPSignalingDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TIPSignalingDescriptor::parseBody(U32 /*dataLength*/, const U8* limit, U32& parsedLength, U16* errorCode)
{
    // The header check guarantees the three bytes in the descriptor; the
    // buffer may still end before them (no length line).
    const U8* body = m_pData + COMMON_HEADER_LENGTH;
    if (!descriptorBytesInBuffer(body, limit, 3, errorCode))
        return FALSE;
    m_iPlatformID = (static_cast<U32>(body[0]) << 16) | (static_cast<U32>(body[1]) << 8) | body[2];
    parsedLength = 3;
    return TRUE;
}

} // namespace Vuro
