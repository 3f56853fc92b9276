#include "TLinkageDescriptor.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kPrivateDataOffset = 9; // tag, length, three identifiers, linkage_type
}

TLinkageDescriptor::TLinkageDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iTransportStreamID(0), m_iOriginalNetworkID(0),
      m_iServiceID(0), m_iLinkageType(0), m_iPrivateDataSize(0), m_pPrivateData(nullptr)
{
}

TLinkageDescriptor::~TLinkageDescriptor()
{
    freeBlock(m_pPrivateData);
    m_pPrivateData = nullptr;
    m_iPrivateDataSize = 0;
}

TLinkageDescriptor* TLinkageDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode)
{
    return parseDescriptor<TLinkageDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TLinkageDescriptor* TLinkageDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                              const U8* limit)
{
    return parseDescriptor<TLinkageDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TLinkageDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    if (!requireData(dataLength, limit, errorCode))
        return FALSE;
    const U8* body = m_pData + COMMON_HEADER_LENGTH;
    m_iTransportStreamID = readU16(body);
    m_iOriginalNetworkID = readU16(body + 2);
    m_iServiceID = readU16(body + 4);
    m_iLinkageType = body[6];
    copyByteBlock(m_pData + kPrivateDataOffset, dataLength - kPrivateDataOffset, m_pPrivateData, m_iPrivateDataSize);
    parsedLength = dataLength - COMMON_HEADER_LENGTH;
    return TRUE;
}

} // namespace Vuro
