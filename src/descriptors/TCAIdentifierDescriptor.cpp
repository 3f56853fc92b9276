#include "TCAIdentifierDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

TCAIdentifierDescriptor::TCAIdentifierDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iCASystemIDCount(0), m_pCASystemIDs(nullptr)
{
}

TCAIdentifierDescriptor::~TCAIdentifierDescriptor()
{
    freeBlock(m_pCASystemIDs);
}

TCAIdentifierDescriptor* TCAIdentifierDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                        U16* errorCode)
{
    return parseDescriptor<TCAIdentifierDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TCAIdentifierDescriptor* TCAIdentifierDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                        U16* errorCode, const U8* limit)
{
    return parseDescriptor<TCAIdentifierDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TCAIdentifierDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    // CA_system_id (16) repeated to the end of the body; an odd last byte is
    // not an id and is skipped. The count is kept in 8 bits.
    const U8* body = m_pData + COMMON_HEADER_LENGTH;
    const U8 count = static_cast<U8>((dataLength - COMMON_HEADER_LENGTH) >> 1);
    if (!descriptorBytesInBuffer(body, limit, 2u * count, errorCode))
        return FALSE;
    m_iCASystemIDCount = count;
    if (count > 0) {
        m_pCASystemIDs = newBlock<VURO_U16>(count);
        for (U32 i = 0; i < count; ++i)
            m_pCASystemIDs[i] = readU16(body + 2 * i);
    }
    parsedLength = dataLength - COMMON_HEADER_LENGTH;
    return TRUE;
}

} // namespace Vuro
