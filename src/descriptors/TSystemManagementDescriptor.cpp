#include "TSystemManagementDescriptor.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kInfoOffset = 4; // tag, length, system_management_id
}

TSystemManagementDescriptor::TSystemManagementDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iSystemMngID(0), m_iAdditionalIdentInfoSize(0),
      m_pAdditionalIdentInfo(nullptr)
{
}

TSystemManagementDescriptor::~TSystemManagementDescriptor()
{
    freeBlock(m_pAdditionalIdentInfo);
    m_pAdditionalIdentInfo = nullptr;
    m_iAdditionalIdentInfoSize = 0;
}

TSystemManagementDescriptor* TSystemManagementDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                                U16* errorCode)
{
    return parseDescriptor<TSystemManagementDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TSystemManagementDescriptor* TSystemManagementDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                                U16* errorCode, const U8* limit)
{
    return parseDescriptor<TSystemManagementDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TSystemManagementDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    if (!requireData(dataLength, limit, errorCode))
        return FALSE;
    m_iSystemMngID = readU16(m_pData + COMMON_HEADER_LENGTH);
    copyByteBlock(m_pData + kInfoOffset, dataLength - kInfoOffset, m_pAdditionalIdentInfo, m_iAdditionalIdentInfoSize);
    parsedLength = dataLength - COMMON_HEADER_LENGTH;
    return TRUE;
}

} // namespace Vuro
