#include "TDatacasterCarousel.h"

#include "../TISDBTTable.h"
#include "../utils/ParserUtils.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kAdmittedLength = 3;
const U32 kFixedLength = 8; // PID, version, carousel_id, component_tag
} // namespace

TDatacasterCarousel::TDatacasterCarousel()
    : m_pParentDCTTable(nullptr), m_iPID(0), m_iVersion(0), m_iCarouselID(0), m_iComponentTag(0)
{
}

TDatacasterCarousel::~TDatacasterCarousel() = default;

TDatacasterCarousel* TDatacasterCarousel::rejectLength(U32 available, U16* errorCode)
{
    VURO_LOGW("%s: TDatacasterCarousel::parse: Item length not valid: %u. Aborting!", VURO_LOG_ORIGIN, available);
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    return nullptr;
}

TDatacasterCarousel* TDatacasterCarousel::parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors,
                                                U32* itemLength, U16* errorCode)
{
    return parse(sectionData, dataLength, parseDescriptors, itemLength, errorCode,
                 outerLimit(sectionData, dataLength));
}

TDatacasterCarousel* TDatacasterCarousel::parse(U8* sectionData, U32 dataLength, BOOL /*parseDescriptors*/,
                                                U32* itemLength, U16* errorCode, const U8* limit)
{
    // Only 3 bytes are required although 8 fixed bytes follow: table walkers
    // hand the entry the rest of the table body, which is checked against the
    // 3-byte minimum only. Kept; the 8 bytes must still lie in the buffer,
    // and where they do not the entry stops there with the same line.
    if (dataLength < kAdmittedLength)
        return rejectLength(dataLength, errorCode);
    if (!fits(sectionData, limit, kFixedLength))
        return rejectLength(bytesLeft(sectionData, limit), errorCode);

    TDatacasterCarousel* entry = new TDatacasterCarousel();
    entry->m_iPID = static_cast<VURO_U16>(((sectionData[0] & 0x1F) << 8) | sectionData[1]);
    entry->m_iVersion = sectionData[2];
    entry->m_iCarouselID = readU32(sectionData + 3);
    entry->m_iComponentTag = sectionData[7];

    // A length-prefixed name in what dataLength leaves after the fixed bytes
    // (a count that wraps when dataLength is under 8). A name that fits that
    // count but not the buffer stops at the buffer's end.
    U8* name = sectionData + kFixedLength;
    const U32 maxLength = dataLength - kFixedLength;
    const U32 inBuffer = bytesLeft(name, limit);
    if (maxLength != 0 && (inBuffer == 0 || (name[0] < maxLength && name[0] + 1u > inBuffer))) {
        delete entry;
        return rejectLength(inBuffer, errorCode);
    }
    const S32 consumed = ParserUtils::parseStr(name, entry->m_sApplicationName, 0, maxLength);
    if (consumed < 0) {
        // "TDatacasterCarousel:: parse" with the blank: receivers match the
        // line as it has always been written.
        VURO_LOGW("%s: TDatacasterCarousel:: parse: ERROR: parsing ApplicationName. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
        delete entry;
        return nullptr;
    }
    if (itemLength)
        *itemLength = kFixedLength + static_cast<U32>(consumed);
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return entry;
}

} // namespace Vuro
