#include "TTerrestrialDeliverySystemDescriptor.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kFrequencyOffset = 4; // tag, length, area code / guard interval / mode
}

TTerrestrialDeliverySystemDescriptor::TTerrestrialDeliverySystemDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iAreaCode(0), m_iGuardInterval(0), m_iTransmissionMode(0),
      m_iFrequencyCounter(0), m_pFrequencies(nullptr)
{
}

TTerrestrialDeliverySystemDescriptor::~TTerrestrialDeliverySystemDescriptor()
{
    freeBlock(m_pFrequencies);
    m_pFrequencies = nullptr;
}

TTerrestrialDeliverySystemDescriptor* TTerrestrialDeliverySystemDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                                  U32* parsedLength, U16* errorCode)
{
    return parseDescriptor<TTerrestrialDeliverySystemDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                                 nullptr);
}

TTerrestrialDeliverySystemDescriptor* TTerrestrialDeliverySystemDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                                  U32* parsedLength, U16* errorCode,
                                                                                  const U8* limit)
{
    return parseDescriptor<TTerrestrialDeliverySystemDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                                 limit);
}

BOOL TTerrestrialDeliverySystemDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength,
                                                     U16* errorCode)
{
    if (!requireData(dataLength, limit, errorCode))
        return FALSE;
    const U8* body = m_pData + COMMON_HEADER_LENGTH;
    m_iAreaCode = static_cast<U16>((body[0] << 4) | (body[1] >> 4));
    m_iGuardInterval = static_cast<U8>((body[1] & 0x0C) >> 2);
    m_iTransmissionMode = static_cast<U8>(body[1] & 0x03);
    // Two bytes per frequency. An odd byte count leaves a last byte that
    // holds no whole frequency; it is not read.
    const U32 count = (dataLength - kFrequencyOffset) >> 1;
    m_iFrequencyCounter = static_cast<U8>(count & 0xFF);
    m_pFrequencies = readU16Array(m_pData + kFrequencyOffset, count);
    parsedLength = dataLength - COMMON_HEADER_LENGTH;
    return TRUE;
}

} // namespace Vuro
