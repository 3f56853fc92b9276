#include "TPartialReceptionDescriptor.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

TPartialReceptionDescriptor::TPartialReceptionDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iServiceIDCount(0), m_pServiceIDs(nullptr)
{
}

TPartialReceptionDescriptor::~TPartialReceptionDescriptor()
{
    freeBlock(m_pServiceIDs);
    m_pServiceIDs = nullptr;
}

TPartialReceptionDescriptor* TPartialReceptionDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                                U16* errorCode)
{
    return parseDescriptor<TPartialReceptionDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TPartialReceptionDescriptor* TPartialReceptionDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                                U16* errorCode, const U8* limit)
{
    return parseDescriptor<TPartialReceptionDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TPartialReceptionDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    if (!requireData(dataLength, limit, errorCode))
        return FALSE;
    // Two bytes per service_id; the count is kept in 8 bits and the array
    // holds that many. A trailing odd byte is not read.
    m_iServiceIDCount = static_cast<U8>(((dataLength - COMMON_HEADER_LENGTH) >> 1) & 0xFF);
    m_pServiceIDs = readU16Array(m_pData + COMMON_HEADER_LENGTH, m_iServiceIDCount);
    parsedLength = dataLength - COMMON_HEADER_LENGTH;
    return TRUE;
}

} // namespace Vuro
