#include "TServiceDescription.h"

#include "../descriptors/TISDBTDescriptorSlots.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kFixedLength = 5; // service_id, flags, running_status .. descriptors_loop_length
const U32 kDescriptorHeader = TISDBTDescriptor::COMMON_HEADER_LENGTH;
} // namespace

using Slots = TISDBTDescriptorSlots<TServiceDescription>;

TServiceDescription::TServiceDescription()
    : m_iServiceID(0), m_bEITSchedule(FALSE), m_bEITPresentFollowing(FALSE), m_iRunningStatus(0), m_iFreeCAMode(0),
      m_pServiceDesc(nullptr), m_pBouquetNameDesc(nullptr), m_pCountryAvailabilityDesc(nullptr),
      m_pLinkageDesc(nullptr), m_pDigitalCopyControlDesc(nullptr), m_pLogoTransmissionDesc(nullptr),
      m_pContentAvailabilityDesc(nullptr), m_pNVODReferenceDesc(nullptr), m_pTimeShiftServiceDesc(nullptr),
      m_pMosaicDesc(nullptr), m_pCAIdentifierDesc(nullptr)
{
}

TServiceDescription::~TServiceDescription()
{
    Slots::release(*this);
}

template <class Self, class Visit>
void TServiceDescription::forEachSlot(Self& self, Visit visit)
{
    visit(self.m_pServiceDesc);
    visit(self.m_pBouquetNameDesc);
    visit(self.m_pCountryAvailabilityDesc);
    visit(self.m_pLinkageDesc);
    visit(self.m_pDigitalCopyControlDesc);
    visit(self.m_pLogoTransmissionDesc);
    visit(self.m_pContentAvailabilityDesc);
    visit(self.m_pNVODReferenceDesc);
    visit(self.m_pTimeShiftServiceDesc);
    visit(self.m_pMosaicDesc);
    visit(self.m_pCAIdentifierDesc);
}

TISDBTDescriptor* TServiceDescription::getDescriptor(U8 descriptorTag) const
{
    return Slots::get(*this, descriptorTag);
}

std::list<U8> TServiceDescription::getDescriptorTags() const
{
    return Slots::tags(*this);
}

TServiceDescription* TServiceDescription::rejectLength(TServiceDescription* service, U32 length, U32 available,
                                                       U16* errorCode)
{
    VURO_LOGW("%s: TServiceDescription::parse: Item length not valid: %u > %u. Aborting!", VURO_LOG_ORIGIN, length,
              available);
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    delete service;
    return nullptr;
}

TServiceDescription* TServiceDescription::parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors,
                                                U32* itemLength, U16* errorCode)
{
    return parse(sectionData, dataLength, parseDescriptors, itemLength, errorCode,
                 outerLimit(sectionData, dataLength));
}

TServiceDescription* TServiceDescription::parse(U8* sectionData, U32 dataLength, BOOL /*parseDescriptors*/,
                                                U32* itemLength, U16* errorCode, const U8* limit)
{
    if (dataLength < kFixedLength || !fits(sectionData, limit, kFixedLength)) {
        VURO_LOGW("%s: TServiceDescription::parse: Item length not valid: %u. Aborting!", VURO_LOG_ORIGIN,
                  dataLength < kFixedLength ? dataLength : bytesLeft(sectionData, limit));
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    TServiceDescription* service = new TServiceDescription();
    service->m_iServiceID = readU16(sectionData);
    service->m_bEITSchedule = (sectionData[2] & 0x02) ? TRUE : FALSE;
    service->m_bEITPresentFollowing = (sectionData[2] & 0x01) ? TRUE : FALSE;
    service->m_iRunningStatus = static_cast<U8>(sectionData[3] >> 5);
    service->m_iFreeCAMode = static_cast<U8>((sectionData[3] & 0x10) >> 4);
    U16 descriptorsLength = static_cast<U16>(((sectionData[3] & 0x0F) << 8) | sectionData[4]);
    dataLength -= kFixedLength;
    U8* position = sectionData + kFixedLength;
    U32 consumed = kFixedLength;
    if (descriptorsLength > dataLength)
        return rejectLength(service, descriptorsLength, dataLength, errorCode);

    // The loop count is 16-bit and the loop ends only when it is exactly
    // zero; each descriptor is checked against what remains of the section
    // (unsigned, so with fewer than 2 bytes left any length passes). A known
    // descriptor must also lie inside the buffer before it is parsed; an
    // unknown one is skipped without reading its body, so only the next
    // header read needs the buffer.
    while (descriptorsLength != 0) {
        if (!fits(position, limit, kDescriptorHeader))
            return rejectLength(service, kDescriptorHeader, bytesLeft(position, limit), errorCode);
        const U8 tag = position[0];
        const U32 length = position[1];
        if (length > dataLength - kDescriptorHeader)
            return rejectLength(service, length, dataLength - kDescriptorHeader, errorCode);
        const U32 total = length + kDescriptorHeader;
        // Every tag goes to the dispatch whatever its length: an empty known
        // descriptor is handed to its parser (and fails its minimum length).
        switch (Slots::parse(*service, position, total, errorCode, limit)) {
        case Slots::FAILED:
            delete service; // the descriptor has logged and stored its code
            return nullptr;
        case Slots::PAST_BUFFER:
            return rejectLength(service, length, bytesLeft(position, limit) - kDescriptorHeader, errorCode);
        case Slots::UNKNOWN:
            VURO_LOGW("%s: TServiceDescription::parse: Unknown descriptor: 0x%02X. Ignored!", VURO_LOG_ORIGIN, tag);
            break;
        case Slots::STORED:
        case Slots::STUFFING:
            break;
        }
        // A step past the end of the buffer stops at the end, where the next
        // header read fails.
        stepWithin(position, limit, total);
        descriptorsLength = static_cast<U16>(descriptorsLength - total);
        dataLength -= total;
        consumed += total;
    }
    if (itemLength)
        *itemLength = consumed;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return service;
}

} // namespace Vuro
