#include "TDownloadContentDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

namespace {

const U32 kFixedEnd = 19;          // header and the fixed fields up to component_tag
const U32 kCompatibilityLengthLow = 20; // low byte of compatibilityDescriptorLength
const U32 kLanguageCodeLength = 3;

BOOL failString(const char* line, U16* errorCode)
{
    VURO_LOGW(line, VURO_LOG_ORIGIN);
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
    return FALSE;
}

} // namespace

TDownloadContentDescriptor::TDownloadContentDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iReboot(0), m_iAddOn(0), m_iCompatibilityFlag(0),
      m_iModuleInfoFlag(0), m_iTextInfoFlag(0), m_iComponentSize(0), m_iDownloadID(0), m_iTimeOutValueDII(0),
      m_iLeakRate(0), m_iComponentTag(0), m_iPrivateDataLength(0), m_iPrivateData(nullptr),
      m_pCompatibilityDesc(nullptr), appPortalUpdateDescriptor(nullptr)
{
}

TDownloadContentDescriptor::~TDownloadContentDescriptor()
{
    delete[] m_iPrivateData;
    m_iPrivateData = nullptr;
    delete m_pCompatibilityDesc;
    m_pCompatibilityDesc = nullptr;
    m_pItems.clear();
    delete appPortalUpdateDescriptor;
    appPortalUpdateDescriptor = nullptr;
}

TDownloadContentDescriptor* TDownloadContentDescriptor::parse(VURO_U8* data, VURO_U32 dataLength,
                                                              VURO_U32* parsedLength, VURO_U16* errorCode)
{
    return parseDescriptor<TDownloadContentDescriptor>(data, dataLength, parsedLength, errorCode, nullptr);
}

TDownloadContentDescriptor* TDownloadContentDescriptor::parse(VURO_U8* data, VURO_U32 dataLength,
                                                              VURO_U32* parsedLength, VURO_U16* errorCode,
                                                              const U8* limit)
{
    return parseDescriptor<TDownloadContentDescriptor>(data, dataLength, parsedLength, errorCode, limit);
}

BOOL TDownloadContentDescriptor::require(const U8* position, U32 count, const U8* limit, U16* errorCode) const
{
    return requireData(static_cast<U32>(position - m_pData) + count, limit, errorCode);
}

BOOL TDownloadContentDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    if (!requireData(kFixedEnd, limit, errorCode))
        return FALSE;
    const U8* d = m_pData;
    m_iReboot = (d[2] & 0x80) ? 1 : 0;
    m_iAddOn = (d[2] & 0x40) ? 1 : 0;
    m_iCompatibilityFlag = (d[2] & 0x20) ? 1 : 0;
    m_iModuleInfoFlag = (d[2] & 0x10) ? 1 : 0;
    m_iTextInfoFlag = (d[2] & 0x08) ? 1 : 0;
    m_iComponentSize = readU32(d + 3);
    m_iDownloadID = readU32(d + 7);
    m_iTimeOutValueDII = readU32(d + 11);
    m_iLeakRate = (static_cast<U32>(d[15]) << 14) | (static_cast<U32>(d[16]) << 6) | (d[17] >> 2);
    m_iComponentTag = d[18];

    // The optional parts are not checked against descriptor_length: each is
    // handed what is left of the descriptor (a wrapped count once a part
    // overruns it) and only the buffer bounds the reads. A step that would
    // pass the buffer stops at its end, where the next read fails, so on
    // success position - body is every body byte walked: the parsed length.
    U8* const body = m_pData + COMMON_HEADER_LENGTH;
    U8* position = m_pData + kFixedEnd;
    const auto advance = [&](U32 count) { stepWithin(position, limit, count); };
    const auto left = [&]() { return dataLength - COMMON_HEADER_LENGTH - static_cast<U32>(position - body); };

    if (m_iCompatibilityFlag) {
        // compatibilityDescriptorLength is 16 bits but only its low byte is
        // taken: receivers size the structure so; intended.
        if (!requireData(kCompatibilityLengthLow + 1, limit, errorCode))
            return FALSE;
        const U32 length = d[kCompatibilityLengthLow] + 2u;
        m_pCompatibilityDesc = TCompatibilityDescriptor::parse(position, length, nullptr, errorCode, limit);
        if (!m_pCompatibilityDesc)
            return FALSE;
        advance(length);
    }

    if (m_iModuleInfoFlag) {
        if (!require(position, 2, limit, errorCode))
            return FALSE;
        const U16 moduleCount = readU16(position);
        advance(2);
        for (U16 i = 0; i < moduleCount; ++i) {
            U32 moduleLength = 0;
            TDownloadContentDescriptorItem* module =
                TDownloadContentDescriptorItem::parse(position, left(), &moduleLength, errorCode, limit);
            if (!module) {
                VURO_LOGW("%s: TDownloadContentDescriptor::parse: Invalid item. Aborting!", VURO_LOG_ORIGIN);
                ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_ITEM);
                return FALSE;
            }
            m_pItems.add(module);
            advance(moduleLength);
        }
    }

    if (!require(position, 1, limit, errorCode))
        return FALSE;
    m_iPrivateDataLength = *position;
    advance(1);
    if (m_iPrivateDataLength != 0) {
        if (!require(position, m_iPrivateDataLength, limit, errorCode))
            return FALSE;
        if (!copyDownloadBlock(position, m_iPrivateDataLength, m_iPrivateData,
                               "%s: TDownloadContentDescriptor:: parse: ERROR: parsing Private Data. Aborting!",
                               errorCode))
            return FALSE;
        // A record that cannot be decoded leaves a null portal update (and its
        // code in errorCode until the success below overwrites it); the
        // descriptor itself stays valid.
        appPortalUpdateDescriptor = TAppPortalUpdate::parse(m_iPrivateData, m_iPrivateDataLength, errorCode);
        advance(m_iPrivateDataLength);
    }

    if (m_iTextInfoFlag && !parseText(position, left(), limit, errorCode))
        return FALSE;
    parsedLength = static_cast<U32>(position - body);
    return TRUE;
}

BOOL TDownloadContentDescriptor::parseText(U8*& position, U32 left, const U8* limit, U16* errorCode)
{
    if (left >= kLanguageCodeLength && !require(position, kLanguageCodeLength, limit, errorCode))
        return FALSE;
    if (ParserUtils::parseStr(position, m_sLanguageCode, kLanguageCodeLength, left) !=
        static_cast<S32>(kLanguageCodeLength))
        return failString("%s: TDownloadContentDescriptor:: parse: ERROR: parsing Language Code. Aborting!",
                          errorCode);
    if (!require(position, kLanguageCodeLength + 1, limit, errorCode))
        return FALSE;
    const U8 textLength = position[kLanguageCodeLength];
    position += kLanguageCodeLength + 1;
    left -= kLanguageCodeLength + 1;
    if (textLength == 0)
        return TRUE;
    if (textLength <= left && !require(position, textLength, limit, errorCode))
        return FALSE;
    // The download content descriptor logs the component descriptor's text
    // line, class name included; receivers' log filters match it as it is.
    if (ParserUtils::parseStr(position, m_sText, textLength, left) != static_cast<S32>(textLength))
        return failString("%s: TComponentDescriptor:: parse: ERROR: parsing Text. Aborting!", errorCode);
    position += textLength;
    return TRUE;
}

} // namespace Vuro
