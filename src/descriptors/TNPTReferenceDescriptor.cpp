#include "TNPTReferenceDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

TNPTReferenceDescriptor::TNPTReferenceDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_bPostDiscontinuity(FALSE), m_iDSMCCContentID(0),
      m_iSTCReferenceH(0), m_iSTCReferenceL(0), m_iNPTReferenceH(0), m_iNPTReferenceL(0), m_iScaleNumerator(0),
      m_iScaleDenominator(0)
{
}

TNPTReferenceDescriptor::~TNPTReferenceDescriptor() = default;

TNPTReferenceDescriptor* TNPTReferenceDescriptor::parse(U8* sectionData, U32 dataLength, U32*, U16* errorCode)
{
    return parseDescriptor<TNPTReferenceDescriptor>(sectionData, dataLength, nullptr, errorCode, nullptr);
}

TNPTReferenceDescriptor* TNPTReferenceDescriptor::parse(U8* sectionData, U32 dataLength, U32*, U16* errorCode,
                                                        const U8* limit)
{
    return parseDescriptor<TNPTReferenceDescriptor>(sectionData, dataLength, nullptr, errorCode, limit);
}

BOOL TNPTReferenceDescriptor::parseBody(U32 dataLength, const U8* limit, U32&, U16* errorCode)
{
    // The minimum length holds every field (bytes 2 to 19).
    if (!requireData(dataLength, limit, errorCode))
        return FALSE;
    const U8* d = m_pData;
    m_bPostDiscontinuity = (d[2] & 0x80) != 0;
    m_iDSMCCContentID = static_cast<VURO_U8>(d[2] & 0x7F);
    m_iSTCReferenceH = static_cast<VURO_U8>(d[3] & 0x01);
    m_iSTCReferenceL = readU32(d + 4);
    m_iNPTReferenceH = static_cast<VURO_U8>(d[11] & 0x01);
    m_iNPTReferenceL = readU32(d + 12);
    m_iScaleNumerator = readU16(d + 16);
    m_iScaleDenominator = readU16(d + 18);
    return TRUE;
}

} // namespace Vuro
