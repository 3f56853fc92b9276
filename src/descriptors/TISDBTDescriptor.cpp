#include "TISDBTDescriptor.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

TISDBTDescriptor::TISDBTDescriptor(U8 tag, U8* data, U32 length)
    : TISDBTDataHolder(data, length, FALSE), m_iDescriptorTag(tag)
{
}

TISDBTDescriptor::~TISDBTDescriptor() = default;

BOOL TISDBTDescriptor::parseCommonHeader(U8* sectionData, U32 dataLength, U16* errorCode,
                                         U8 minimumDescriptorLength, U16 expectedDescriptorTag)
{
    if (!sectionData) {
        VURO_LOGW("%s: TISDBTDescriptor::parseCommonHeader: (1) Invalid data. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA);
        return FALSE;
    }
    // The sum is kept to 8 bits, as the field it is compared for is.
    const U8 required = static_cast<U8>(minimumDescriptorLength + COMMON_HEADER_LENGTH);
    // A minimum of 254 or more wraps the sum below the two header bytes, which
    // are still needed: each is checked for just before it is read (the tag
    // is compared whenever its byte is there).
    const auto shorterThan = [&](U32 needed) {
        VURO_LOGW("%s: TISDBTDescriptor::parseCommonHeader: (2) Longer data length is required: %u < %u. Aborting!",
                  VURO_LOG_ORIGIN, dataLength, needed);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
        return FALSE;
    };
    if (required > dataLength)
        return shorterThan(required);
    if (dataLength < 1)
        return shorterThan(COMMON_HEADER_LENGTH);
    if (sectionData[0] != expectedDescriptorTag) {
        VURO_LOGW("%s: TISDBTDescriptor::parseCommonHeader: (3) Unexpected Descriptor Tag. Got 0x%02X, instead of "
                  "0x%02X. Aborting!",
                  VURO_LOG_ORIGIN, sectionData[0], expectedDescriptorTag);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_TAG);
        return FALSE;
    }
    if (dataLength < COMMON_HEADER_LENGTH)
        return shorterThan(COMMON_HEADER_LENGTH);
    const U32 descriptorLength = sectionData[1];
    if (descriptorLength + COMMON_HEADER_LENGTH > dataLength) {
        // Arguments stand as (needed, available) although the text reads
        // "a < b"; receivers' log parsers expect this order, so it is kept.
        VURO_LOGW("%s: TISDBTDescriptor::parseCommonHeader: (4) Longer data length is required: %u < %u. Aborting!",
                  VURO_LOG_ORIGIN, descriptorLength + COMMON_HEADER_LENGTH, dataLength);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
        return FALSE;
    }
    if (descriptorLength < minimumDescriptorLength) {
        VURO_LOGW("%s: TISDBTDescriptor::parseCommonHeader: (5) Longer descriptor length is required: %u < %u. "
                  "Aborting!",
                  VURO_LOG_ORIGIN, descriptorLength, static_cast<U32>(minimumDescriptorLength));
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
        return FALSE;
    }
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return TRUE;
}

BOOL TISDBTDescriptor::requireData(U32 dataLength, const U8* limit, U16* errorCode) const
{
    if (fits(m_pData, limit, dataLength))
        return TRUE;
    VURO_LOGW("%s: TISDBTDescriptor::parseCommonHeader: (4) Longer data length is required: %u < %u. Aborting!",
              VURO_LOG_ORIGIN, dataLength, bytesLeft(m_pData, limit));
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    return FALSE;
}

} // namespace Vuro
