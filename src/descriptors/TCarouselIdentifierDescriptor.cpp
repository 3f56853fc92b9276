#include "TCarouselIdentifierDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

namespace {
const U32 kCarouselIDLength = 4;
}

TCarouselIdentifierDescriptor::TCarouselIdentifierDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iCarouselID(0), m_iFormatID(0), m_iModuleVersion(0),
      m_iModuleID(0), m_iBlockSize(0), m_iModuleSize(0), m_iCompressionMethod(0), m_iOriginalSize(0), m_iTimeOut(0),
      m_iObjectKeySize(0), m_pObjectKeyData(nullptr), m_iPrivateDataSize(0), m_pPrivateData(nullptr)
{
}

TCarouselIdentifierDescriptor::~TCarouselIdentifierDescriptor()
{
    freeBlock(m_pObjectKeyData);
    freeBlock(m_pPrivateData);
}

TCarouselIdentifierDescriptor* TCarouselIdentifierDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                    U32* parsedLength, U16* errorCode)
{
    return parseDescriptor<TCarouselIdentifierDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                          nullptr);
}

TCarouselIdentifierDescriptor* TCarouselIdentifierDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                    U32* parsedLength, U16* errorCode,
                                                                    const U8* limit)
{
    return parseDescriptor<TCarouselIdentifierDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                          limit);
}

BOOL TCarouselIdentifierDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    const U8* body = m_pData + COMMON_HEADER_LENGTH;
    // Everything after carousel_id, FormatID included, is kept as private
    // data; the FormatID fields stay zero. The data carousel client decodes
    // that block itself, so this is intended.
    if (!copyBlockAfterFields(m_pData, dataLength, kCarouselIDLength, limit, m_pPrivateData, m_iPrivateDataSize,
                              errorCode))
        return FALSE;
    m_iCarouselID = readU32(body);
    parsedLength = dataLength - COMMON_HEADER_LENGTH;
    return TRUE;
}

} // namespace Vuro
