#include "TCountryAvailabilityDescriptor.h"

#include "../utils/VuroParseSupport.h"
#include "DescriptorBodySupport.h"

namespace Vuro {

namespace {
const U32 kCountryCodeLength = 3;
// country_availability_flag byte, then the codes.
const U32 kFirstCodeOffset = 3;
} // namespace

TCountryAvailabilityDescriptor::TCountryAvailabilityDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iCountryAvailabilityFlag(0)
{
}

TCountryAvailabilityDescriptor::~TCountryAvailabilityDescriptor() = default;

TCountryAvailabilityDescriptor* TCountryAvailabilityDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                      U32* parsedLength, U16* errorCode)
{
    return parseDescriptor<TCountryAvailabilityDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                           nullptr);
}

TCountryAvailabilityDescriptor* TCountryAvailabilityDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                      U32* parsedLength, U16* errorCode,
                                                                      const U8* limit)
{
    return parseDescriptor<TCountryAvailabilityDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                           limit);
}

BOOL TCountryAvailabilityDescriptor::remove(U32 index)
{
    if (index >= m_pItems.size())
        return FALSE;
    m_pItems.erase(m_pItems.begin() + index);
    return TRUE;
}

BOOL TCountryAvailabilityDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    if (!descriptorBytesInBuffer(m_pData, limit, kFirstCodeOffset, errorCode))
        return FALSE; // the flag byte past the end of the buffer
    m_iCountryAvailabilityFlag = static_cast<U8>(m_pData[2] >> 7);
    const U8* position = m_pData + kFirstCodeOffset;
    // Codes are taken until the count is used up exactly. A count that is no
    // multiple of three would leave a partial code at the end: it is refused
    // there, without reading past the descriptor.
    for (U32 remaining = dataLength - kFirstCodeOffset; remaining != 0; remaining -= kCountryCodeLength) {
        if (remaining < kCountryCodeLength || !fits(position, limit, kCountryCodeLength)) {
            ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
            return FALSE;
        }
        m_pItems.push_back((static_cast<U32>(position[0]) << 16) | (static_cast<U32>(position[1]) << 8) |
                           position[2]);
        position += kCountryCodeLength;
    }
    // The parsed length has always been reported as 0 for this descriptor;
    // callers use descriptor_length.
    parsedLength = 0;
    return TRUE;
}

} // namespace Vuro
