#include "TAVCVideoDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

namespace {
const U32 kBodyLength = 4;
}

TAVCVideoDescriptor::TAVCVideoDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iProfileIDC(0), m_bConstraintSet0Flag(FALSE),
      m_bConstraintSet1Flag(FALSE), m_bConstraintSet2Flag(FALSE), m_iAVCCompatibleFlags(0), m_iLevelIDC(0),
      m_bAVCStillPresent(FALSE), m_bAVC24HourPictureFlag(FALSE)
{
}

TAVCVideoDescriptor::~TAVCVideoDescriptor() = default;

TAVCVideoDescriptor* TAVCVideoDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                U16* errorCode)
{
    return parseDescriptor<TAVCVideoDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TAVCVideoDescriptor* TAVCVideoDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                U16* errorCode, const U8* limit)
{
    return parseDescriptor<TAVCVideoDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TAVCVideoDescriptor::parseBody(U32, const U8* limit, U32& parsedLength, U16* errorCode)
{
    const U8* body = m_pData + COMMON_HEADER_LENGTH;
    if (!descriptorBytesInBuffer(body, limit, kBodyLength, errorCode))
        return FALSE;
    m_iProfileIDC = body[0];
    m_bConstraintSet0Flag = (body[1] & 0x80) != 0;
    m_bConstraintSet1Flag = (body[1] & 0x40) != 0;
    m_bConstraintSet2Flag = (body[1] & 0x20) != 0;
    m_iAVCCompatibleFlags = static_cast<U8>(body[1] & 0x1F);
    m_iLevelIDC = body[2];
    m_bAVCStillPresent = (body[3] & 0x80) != 0;
    m_bAVC24HourPictureFlag = (body[3] & 0x40) != 0;
    parsedLength = kBodyLength;
    return TRUE;
}

} // namespace Vuro
