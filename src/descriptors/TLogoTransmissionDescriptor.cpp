#include "TLogoTransmissionDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

namespace {

const U32 kCDT1Length = 6;
const U32 kCDT2Length = 2;

const char kLengthLine[] =
    "%s: TLogoTransmissionDescriptor::parse: Longer data length is required: %u < %u. Aborting!";

// The bytes a CDT scheme needs after the type byte, checked against the
// descriptor (count) and the buffer. The line always names 6, the length of
// scheme 1, also for scheme 2 which needs 2: receivers' log filters match
// that text, so it is intended.
BOOL schemeFits(const U8* position, const U8* limit, U32 count, U32 need, U16* errorCode)
{
    if (count < need)
        return descriptorLengthFailure(kLengthLine, count, kCDT1Length, errorCode);
    if (!fits(position, limit, need))
        return descriptorLengthFailure(kLengthLine, bytesLeft(position, limit), kCDT1Length, errorCode);
    return TRUE;
}

} // namespace

TLogoTransmissionDescriptor::TLogoTransmissionDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iLogoTransmType(0), m_iLogoID(0), m_iLogoVersion(0),
      m_iDownloadDataID(0), m_iLogoDataLength(0), m_pLogoData(nullptr)
{
}

TLogoTransmissionDescriptor::~TLogoTransmissionDescriptor()
{
    freeBlock(m_pLogoData);
}

TLogoTransmissionDescriptor* TLogoTransmissionDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                U32* parsedLength, U16* errorCode)
{
    return parseDescriptor<TLogoTransmissionDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TLogoTransmissionDescriptor* TLogoTransmissionDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                U32* parsedLength, U16* errorCode,
                                                                const U8* limit)
{
    return parseDescriptor<TLogoTransmissionDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TLogoTransmissionDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    const U8* body = m_pData + COMMON_HEADER_LENGTH;
    if (!fits(body, limit, 1))
        return descriptorLengthFailure(kLengthLine, 0, 1, errorCode);
    m_iLogoTransmType = body[0];
    const U8* position = body + 1;
    const U32 count = dataLength - COMMON_HEADER_LENGTH - 1;
    switch (m_iLogoTransmType) {
    case TYPE_CDT1:
        if (!schemeFits(position, limit, count, kCDT1Length, errorCode))
            return FALSE;
        m_iLogoID = static_cast<U16>(((position[0] & 0x01) << 8) | position[1]);
        m_iLogoVersion = static_cast<U16>(((position[2] & 0x0F) << 8) | position[3]);
        m_iDownloadDataID = readU16(position + 4);
        parsedLength = 1 + kCDT1Length;
        break;
    case TYPE_CDT2:
        if (!schemeFits(position, limit, count, kCDT2Length, errorCode))
            return FALSE;
        m_iLogoID = static_cast<U16>(((position[0] & 0x01) << 8) | position[1]);
        parsedLength = 1 + kCDT2Length;
        break;
    case TYPE_SIMPLE:
        if (!copyBlockAfterFields(m_pData, dataLength, 1, limit, m_pLogoData, m_iLogoDataLength, errorCode))
            return descriptorLengthFailure(kLengthLine, bytesLeft(position, limit), count, errorCode);
        parsedLength = dataLength - COMMON_HEADER_LENGTH;
        break;
    default:
        // Other types are reported and the descriptor kept with the type only.
        VURO_LOGW("%s: TLogoTransmissionDescriptor::parse: Unsupported Logo Transmission Type: 0x%02X (%d)",
                  VURO_LOG_ORIGIN, m_iLogoTransmType, m_iLogoTransmType);
        parsedLength = 1;
        break;
    }
    return TRUE;
}

} // namespace Vuro
