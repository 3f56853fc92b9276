#include "TTimeShiftedServiceDescriptor.h"

#include "../utils/VuroParseSupport.h"
#include "DescriptorBodySupport.h"

namespace Vuro {

TTimeShiftedServiceDescriptor::TTimeShiftedServiceDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iReferenceServiceID(0)
{
}

TTimeShiftedServiceDescriptor::~TTimeShiftedServiceDescriptor() = default;

TTimeShiftedServiceDescriptor* TTimeShiftedServiceDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                    U32* parsedLength, U16* errorCode)
{
    return parseDescriptor<TTimeShiftedServiceDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TTimeShiftedServiceDescriptor* TTimeShiftedServiceDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                    U32* parsedLength, U16* errorCode,
                                                                    const U8* limit)
{
    return parseDescriptor<TTimeShiftedServiceDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TTimeShiftedServiceDescriptor::parseBody(U32, const U8* limit, U32& parsedLength, U16* errorCode)
{
    // reference_service_id past the end of the buffer (no length line).
    if (!descriptorBytesInBuffer(m_pData + COMMON_HEADER_LENGTH, limit, 2, errorCode))
        return FALSE;
    m_iReferenceServiceID = readU16(m_pData + COMMON_HEADER_LENGTH);
    parsedLength = 2;
    return TRUE;
}

} // namespace Vuro
