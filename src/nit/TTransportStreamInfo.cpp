#include "TTransportStreamInfo.h"

#include "../utils/VuroParseSupport.h"
#include "TNetworkDescriptorSlots.h"

namespace Vuro {

namespace {
const U32 kFixedLength = 6; // two identifiers, transport_descriptors_length
using Slots = TNetworkSlots;
} // namespace

TTransportStreamInfo::TTransportStreamInfo()
    : m_iTransportStreamID(0), m_iOriginalNetworkID(0), m_pNetworkNameDesc(nullptr), m_pSystemMngDesc(nullptr),
      m_pServiceListDesc(nullptr), m_pLinkageDesc(nullptr), m_pTerDelSysDesc(nullptr),
      m_pEmergencyInfoDesc(nullptr), m_pPartialRecepDesc(nullptr), m_pTSInfoDesc(nullptr)
{
}

TTransportStreamInfo::~TTransportStreamInfo()
{
    Slots::release(*this);
}

TISDBTDescriptor* TTransportStreamInfo::getDescriptor(U8 descriptorTag) const
{
    return Slots::get(*this, descriptorTag);
}

std::list<U8> TTransportStreamInfo::getDescriptorTags() const
{
    return Slots::tags(*this);
}

TTransportStreamInfo* TTransportStreamInfo::parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors,
                                                  U32* itemLength, U16* errorCode)
{
    return parse(sectionData, dataLength, parseDescriptors, itemLength, errorCode,
                 outerLimit(sectionData, dataLength));
}

// The class is named "TNITTransportStreamInfo" in its log lines; receivers
// filter on that name, so it is kept.
TTransportStreamInfo* TTransportStreamInfo::rejectLength(TTransportStreamInfo* entry, U32 length, U32 available,
                                                         U16* errorCode)
{
    VURO_LOGW("%s: TNITTransportStreamInfo::parse: Item length not valid: %u > %u. Aborting!", VURO_LOG_ORIGIN,
              length, available);
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    delete entry;
    return nullptr;
}

TTransportStreamInfo* TTransportStreamInfo::parse(U8* sectionData, U32 dataLength, BOOL /*parseDescriptors*/,
                                                  U32* itemLength, U16* errorCode, const U8* limit)
{
    if (dataLength < kFixedLength || !fits(sectionData, limit, kFixedLength)) {
        VURO_LOGW("%s: TNITTransportStreamInfo::parse: Item length not valid: %u. Aborting!", VURO_LOG_ORIGIN,
                  dataLength < kFixedLength ? dataLength : bytesLeft(sectionData, limit));
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    TTransportStreamInfo* entry = new TTransportStreamInfo();
    entry->m_iTransportStreamID = readU16(sectionData);
    entry->m_iOriginalNetworkID = readU16(sectionData + 2);
    U16 descriptorsLength = static_cast<U16>(((sectionData[4] & 0x0F) << 8) | sectionData[5]);
    dataLength -= kFixedLength;
    U8* position = sectionData + kFixedLength;
    U32 consumed = kFixedLength;
    if (descriptorsLength > dataLength)
        return rejectLength(entry, descriptorsLength, dataLength, errorCode);

    // The loop count is 16-bit and the loop ends only when it is exactly
    // zero; each descriptor is checked against what remains of the section
    // (unsigned) and against the buffer.
    while (descriptorsLength != 0) {
        if (!fits(position, limit, TISDBTDescriptor::COMMON_HEADER_LENGTH))
            return rejectLength(entry, TISDBTDescriptor::COMMON_HEADER_LENGTH, bytesLeft(position, limit), errorCode);
        const U32 length = position[1];
        if (length > dataLength - TISDBTDescriptor::COMMON_HEADER_LENGTH)
            return rejectLength(entry, length, dataLength - TISDBTDescriptor::COMMON_HEADER_LENGTH, errorCode);
        const U32 total = length + TISDBTDescriptor::COMMON_HEADER_LENGTH;
        // Empty descriptors are skipped without being parsed, as are stuffing
        // and tags an entry does not keep (silently, unlike the network loop);
        // skipping reads nothing, so only a kept one must lie inside the data.
        if (length != 0) {
            switch (Slots::parse(*entry, position, total, errorCode, limit)) {
            case Slots::FAILED:
                delete entry;
                return nullptr;
            case Slots::PAST_BUFFER:
                return rejectLength(entry, length,
                                    bytesLeft(position, limit) - TISDBTDescriptor::COMMON_HEADER_LENGTH, errorCode);
            case Slots::STORED:
            case Slots::STUFFING:
            case Slots::UNKNOWN:
                break;
            }
        }
        // A step past the end of the data stops at the end, where the next
        // header read fails.
        stepWithin(position, limit, total);
        descriptorsLength = static_cast<U16>(descriptorsLength - total);
        dataLength -= total;
        consumed += total;
    }
    if (itemLength)
        *itemLength = consumed;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return entry;
}

} // namespace Vuro
