#include "TNPTEndpointDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

TNPTEndpointDescriptor::TNPTEndpointDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iNPTStartH(0), m_iNPTStartL(0), m_iNPTStopH(0),
      m_iNPTStopL(0)
{
}

TNPTEndpointDescriptor::~TNPTEndpointDescriptor() = default;

TNPTEndpointDescriptor* TNPTEndpointDescriptor::parse(U8* sectionData, U32 dataLength, U32*, U16* errorCode)
{
    return parseDescriptor<TNPTEndpointDescriptor>(sectionData, dataLength, nullptr, errorCode, nullptr);
}

TNPTEndpointDescriptor* TNPTEndpointDescriptor::parse(U8* sectionData, U32 dataLength, U32*, U16* errorCode,
                                                      const U8* limit)
{
    return parseDescriptor<TNPTEndpointDescriptor>(sectionData, dataLength, nullptr, errorCode, limit);
}

BOOL TNPTEndpointDescriptor::parseBody(U32 dataLength, const U8* limit, U32&, U16* errorCode)
{
    // The minimum length holds both clocks (bytes 2 to 15).
    if (!requireData(dataLength, limit, errorCode))
        return FALSE;
    m_iNPTStartH = static_cast<VURO_U8>(m_pData[3] & 0x01);
    m_iNPTStartL = readU32(m_pData + 4);
    m_iNPTStopH = static_cast<VURO_U8>(m_pData[11] & 0x01);
    m_iNPTStopL = readU32(m_pData + 12);
    return TRUE;
}

} // namespace Vuro
