#include "THierarchicalTransmissionDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

THierarchicalTransmissionDescriptor::THierarchicalTransmissionDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iQualityLevel(0), m_iReferencePID(0)
{
}

THierarchicalTransmissionDescriptor::~THierarchicalTransmissionDescriptor() = default;

THierarchicalTransmissionDescriptor* THierarchicalTransmissionDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                                U32* parsedLength,
                                                                                U16* errorCode)
{
    return parseDescriptor<THierarchicalTransmissionDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                                nullptr);
}

THierarchicalTransmissionDescriptor* THierarchicalTransmissionDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                                U32* parsedLength,
                                                                                U16* errorCode, const U8* limit)
{
    return parseDescriptor<THierarchicalTransmissionDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                                limit);
}

BOOL THierarchicalTransmissionDescriptor::parseBody(U32, const U8* limit, U32& parsedLength, U16* errorCode)
{
    parsedLength = readLevelAndReferencePID(m_pData, limit, m_iQualityLevel, m_iReferencePID, errorCode);
    return parsedLength != 0;
}

} // namespace Vuro
