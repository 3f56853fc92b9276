#include "TDownloadContent.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kFixedLength = 8;
const U32 kScheduleLength = 8;
const U32 kDescriptorHeader = TISDBTDescriptor::COMMON_HEADER_LENGTH;
} // namespace

TDownloadContent::TDownloadContent()
    : m_pParentSDTTTable(nullptr), m_iGroup(0), m_iTargetVersion(0), m_iNewVersion(0), m_iDownloadLevel(0),
      m_iVersionIndicator(0), m_iScheduleTimeShiftInfo(0), m_pDownloadContentDesc(nullptr)
{
}

TDownloadContent::~TDownloadContent()
{
    delete m_pDownloadContentDesc;
    m_pDownloadContentDesc = nullptr;
    m_pItems.clear();
}

TISDBTDescriptor* TDownloadContent::getDescriptor(U8 tag) const
{
    return tag == TDownloadContentDescriptor::DESCRIPTOR_TAG ? m_pDownloadContentDesc : nullptr;
}

std::list<U8> TDownloadContent::getDescriptorTags() const
{
    std::list<U8> tags;
    if (m_pDownloadContentDesc)
        tags.push_back(TDownloadContentDescriptor::DESCRIPTOR_TAG);
    return tags;
}

TDownloadContent* TDownloadContent::refuseLength(TDownloadContent* content, U32 length, U32 available,
                                                 U16* errorCode)
{
    VURO_LOGW("%s: TDownloadContent::parse: Item length not valid: %u > %u. Aborting!", VURO_LOG_ORIGIN, length,
              available);
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    delete content;
    return nullptr;
}

TDownloadContent* TDownloadContent::parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, U32* itemLength,
                                          U16* errorCode)
{
    return parse(sectionData, dataLength, parseDescriptors, itemLength, errorCode,
                 outerLimit(sectionData, dataLength));
}

TDownloadContent* TDownloadContent::parse(U8* sectionData, U32 dataLength, BOOL /*parseDescriptors*/,
                                          U32* itemLength, U16* errorCode, const U8* limit)
{
    if (dataLength < kFixedLength || !fits(sectionData, limit, kFixedLength)) {
        VURO_LOGW("%s: TDownloadContent::parse: Item length not valid: %u. Aborting!", VURO_LOG_ORIGIN,
                  dataLength < kFixedLength ? dataLength : bytesLeft(sectionData, limit));
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    const U8* d = sectionData;
    TDownloadContent* content = new TDownloadContent();
    content->m_iGroup = static_cast<U8>(d[0] >> 4);
    content->m_iTargetVersion = static_cast<U16>(((d[0] & 0x0F) << 8) | d[1]);
    content->m_iNewVersion = static_cast<U16>((d[2] << 4) | (d[3] >> 4));
    content->m_iDownloadLevel = static_cast<U8>((d[3] >> 2) & 0x03);
    content->m_iVersionIndicator = static_cast<U8>(d[3] & 0x03);
    U16 contentLength = static_cast<U16>((d[4] << 4) | (d[5] >> 4));
    U16 scheduleLength = static_cast<U16>((d[6] << 4) | (d[7] >> 4));
    content->m_iScheduleTimeShiftInfo = static_cast<U16>(d[7] & 0x0F);
    U32 remaining = dataLength - kFixedLength;
    U32 consumed = kFixedLength;
    U8* position = sectionData + kFixedLength;
    if (contentLength > remaining)
        return refuseLength(content, contentLength, dataLength - kFixedLength, errorCode);

    // The periods count against content_description_length, as the broadcast
    // syntax defines. Both loops end only when their 16-bit count is exactly
    // zero: a schedule length that is not a multiple of 8, or descriptor
    // lengths that do not add up, wrap the count and the walk goes on into
    // the bytes that follow until a read would pass the end of the buffer.
    while (scheduleLength != 0) {
        TScheduleInfo* info = TScheduleInfo::parse(position, kScheduleLength, nullptr, errorCode, limit);
        if (!info) {
            VURO_LOGW("%s: TDownloadContent::parse: Invalid item. Aborting!", VURO_LOG_ORIGIN);
            ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_ITEM);
            delete content;
            return nullptr;
        }
        content->m_pItems.add(info);
        position += kScheduleLength;
        scheduleLength = static_cast<U16>(scheduleLength - kScheduleLength);
        contentLength = static_cast<U16>(contentLength - kScheduleLength);
        remaining -= kScheduleLength;
        consumed += kScheduleLength;
    }

    // Each descriptor is checked against what remains of the data (unsigned,
    // so with fewer than 2 bytes left any length passes). The download content
    // descriptor must also lie inside the buffer; an unknown descriptor is
    // skipped unread, so only the next header read needs the buffer.
    while (contentLength != 0) {
        if (!fits(position, limit, kDescriptorHeader))
            return refuseLength(content, kDescriptorHeader, bytesLeft(position, limit), errorCode);
        const U8 tag = position[0];
        const U32 length = position[1];
        if (length > remaining - kDescriptorHeader)
            return refuseLength(content, length, remaining - kDescriptorHeader, errorCode);
        const U32 total = length + kDescriptorHeader;
        if (tag == TDownloadContentDescriptor::DESCRIPTOR_TAG) {
            if (!fits(position, limit, total))
                return refuseLength(content, length, bytesLeft(position, limit) - kDescriptorHeader, errorCode);
            // A second 0xC9 descriptor in one entry replaces the first, which
            // is freed.
            if (!TISDBTDescriptor::parseInto(content->m_pDownloadContentDesc, position, total, errorCode, limit)) {
                delete content; // the descriptor has logged and stored its code
                return nullptr;
            }
        } else {
            VURO_LOGW("%s: TDownloadContent::parse: Unknown descriptor: 0x%02X. Ignored!", VURO_LOG_ORIGIN, tag);
        }
        stepWithin(position, limit, total);
        contentLength = static_cast<U16>(contentLength - total);
        remaining -= total;
        consumed += total;
    }
    if (itemLength)
        *itemLength = consumed;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return content;
}

} // namespace Vuro
