#include "TAACDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

namespace {

const char kLengthLine[] =
    "%s: TAACDescriptor::parse: Longer data length is required: %u < %u. Aborting!";

} // namespace

TAACDescriptor::TAACDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iProfileAndLevel(0), m_bAACTypeFlag(FALSE), m_iAACType(0),
      m_iAdditionalInfoSize(0), m_pAdditionalInfo(nullptr)
{
}

TAACDescriptor::~TAACDescriptor()
{
    freeBlock(m_pAdditionalInfo);
}

TAACDescriptor* TAACDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode)
{
    return parseDescriptor<TAACDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TAACDescriptor* TAACDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                      const U8* limit)
{
    return parseDescriptor<TAACDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TAACDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    // Reads past the descriptor's own check stop at the end of the buffer,
    // with the length line naming the bytes there are and the bytes needed.
    const U8* position = m_pData + COMMON_HEADER_LENGTH;
    if (!fits(position, limit, 2))
        return descriptorLengthFailure(kLengthLine, bytesLeft(position, limit), 2, errorCode);
    m_iProfileAndLevel = position[0];
    m_bAACTypeFlag = (position[1] & 0x80) != 0;
    position += 2;
    U32 parsed = 2;
    if (m_bAACTypeFlag) {
        // Only a descriptor that ends right after the flag byte is refused.
        if (dataLength == COMMON_HEADER_LENGTH + 2)
            return descriptorLengthFailure(kLengthLine, 0, 1, errorCode);
        if (!fits(position, limit, 1))
            return descriptorLengthFailure(kLengthLine, 0, 1, errorCode);
        m_iAACType = position[0];
        ++position;
        ++parsed;
    }
    const U32 count = dataLength - COMMON_HEADER_LENGTH - parsed;
    if (!copyBlockAfterFields(m_pData, dataLength, parsed, limit, m_pAdditionalInfo, m_iAdditionalInfoSize,
                              errorCode))
        return descriptorLengthFailure(kLengthLine, bytesLeft(position, limit), count, errorCode);
    parsedLength = parsed + m_iAdditionalInfoSize;
    return TRUE;
}

} // namespace Vuro
