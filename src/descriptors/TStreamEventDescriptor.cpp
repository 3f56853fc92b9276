#include "TStreamEventDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

namespace {
const U32 kFixedLength = 10; // eventId, reserved, eventNPT
}

TStreamEventDescriptor::TStreamEventDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iEventID(0), m_iEventNPTH(0), m_iEventNPTL(0),
      m_iPrivateDataSize(0), m_pPrivateData(nullptr)
{
}

TStreamEventDescriptor::~TStreamEventDescriptor()
{
    freeBlock(m_pPrivateData);
}

TStreamEventDescriptor* TStreamEventDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                      U16* errorCode)
{
    return parseDescriptor<TStreamEventDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TStreamEventDescriptor* TStreamEventDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                      U16* errorCode, const U8* limit)
{
    return parseDescriptor<TStreamEventDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TStreamEventDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    // The minimum length holds the fixed fields; the private data runs from
    // byte 12 to the end of the data.
    if (!requireData(dataLength, limit, errorCode))
        return FALSE;
    const U32 privateData = COMMON_HEADER_LENGTH + kFixedLength;
    copyByteBlock(m_pData + privateData, dataLength - privateData, m_pPrivateData, m_iPrivateDataSize);
    m_iEventID = readU16(m_pData + 2);
    m_iEventNPTH = static_cast<VURO_U8>(m_pData[7] & 0x01);
    m_iEventNPTL = readU32(m_pData + 8);
    parsedLength = dataLength - COMMON_HEADER_LENGTH;
    return TRUE;
}

} // namespace Vuro
