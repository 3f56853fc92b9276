#include "TProgramMap.h"

#include <memory>

#include "../utils/VuroParseSupport.h"
#include "TPMTTable.h"
#include "TStreamDescriptorSlots.h"

namespace Vuro {

namespace {
const U32 kFixedLength = 5; // stream_type, elementary_PID, ES_info_length
const U32 kDescriptorHeader = TISDBTDescriptor::COMMON_HEADER_LENGTH;
using Slots = TStreamDescriptorSlots<TProgramMap>;
} // namespace

TProgramMap::TProgramMap()
    : m_pParentPMTTable(nullptr), m_iStreamType(0), m_iElementaryPID(0)
{
}

// The parent table is not touched.
TProgramMap::~TProgramMap()
{
    Slots::release(*this);
}

TISDBTDescriptor* TProgramMap::getDescriptor(U8 tag) const
{
    return Slots::get(*this, tag);
}

std::list<U8> TProgramMap::getDescriptorTags() const
{
    return Slots::tags(*this);
}

TProgramMap* TProgramMap::parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, U32* itemLength,
                                U16* errorCode)
{
    return parse(sectionData, dataLength, parseDescriptors, itemLength, errorCode,
                 outerLimit(sectionData, dataLength));
}

BOOL TProgramMap::rejectLength(U32 length, U32 available, U16* errorCode)
{
    VURO_LOGW("%s: TProgramMap::parse: Item length not valid: %u > %u. Aborting!", VURO_LOG_ORIGIN, length,
              available);
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    return FALSE;
}

TProgramMap* TProgramMap::parse(U8* sectionData, U32 dataLength, BOOL /*parseDescriptors*/, U32* itemLength,
                                U16* errorCode, const U8* limit)
{
    if (dataLength < kFixedLength || !fits(sectionData, limit, kFixedLength)) {
        VURO_LOGW("%s: TProgramMap::parse: Item length not valid: %u. Aborting!", VURO_LOG_ORIGIN,
                  dataLength < kFixedLength ? dataLength : bytesLeft(sectionData, limit));
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    std::unique_ptr<TProgramMap> entry(new TProgramMap());
    entry->m_iStreamType = sectionData[0];
    // The reserved bits are dropped unchecked.
    entry->m_iElementaryPID = static_cast<U16>(((sectionData[1] & 0x1F) << 8) | sectionData[2]);
    U16 esInfoLength = static_cast<U16>(((sectionData[3] & 0x0F) << 8) | sectionData[4]);
    U32 remaining = dataLength - kFixedLength;
    U32 consumed = kFixedLength;
    U8* position = sectionData + kFixedLength;
    if (esInfoLength > remaining) {
        rejectLength(esInfoLength, remaining, errorCode);
        return nullptr;
    }

    // The ES_info count is 16-bit and the loop ends only when it is exactly
    // zero: descriptors that do not add up to ES_info_length wrap it, and the
    // walk goes on until a descriptor fails its bound. That bound is
    // remaining - 2 in unsigned arithmetic, so with fewer than 2 bytes left
    // it wraps and lets the descriptor through; the end of the buffer then
    // stops the walk.
    const auto reject = [errorCode](U32 length, U32 available) { return rejectLength(length, available, errorCode); };
    while (esInfoLength != 0) {
        U32 total = 0;
        // A malformed ISO 639 language descriptor leaves its slot empty and
        // the stream is kept: an unreadable language code should not cost
        // the viewer the stream. Intended, unlike the programme loop.
        if (!Slots::parseNext(*entry, position, limit, remaining - kDescriptorHeader, Slots::LANGUAGE_UNCHECKED,
                              errorCode, total, reject, [](U8) {}))
            return nullptr;
        consumed += total;
        remaining -= total;
        esInfoLength = static_cast<U16>(esInfoLength - total);
    }
    if (itemLength)
        *itemLength = consumed;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return entry.release();
}

// The parent's programme-level descriptor stands in for a missing own one only
// when asked to and when the parent has it.
template <class D>
D* TProgramMap::inheritable(D* own, D* (TPMTTable::*parentGetter)() const, BOOL inherit, BOOL* inherited) const
{
    return inheritDescriptor(own, m_pParentPMTTable, parentGetter, inherit, inherited);
}

TCAIdentifierDescriptor* TProgramMap::getCAIdentifierDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pCAIdentifierDesc, &TPMTTable::getCAIdentifierDescriptor, inherit, inherited);
}

TCopyrightDescriptor* TProgramMap::getCopyrightDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pCopyrightDesc, &TPMTTable::getCopyrightDescriptor, inherit, inherited);
}

TCountryAvailabilityDescriptor* TProgramMap::getCountryAvailabilityDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pCountryAvailabilityDesc, &TPMTTable::getCountryAvailabilityDescriptor, inherit,
                       inherited);
}

TLinkageDescriptor* TProgramMap::getLinkageDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pLinkageDesc, &TPMTTable::getLinkageDescriptor, inherit, inherited);
}

TComponentDescriptor* TProgramMap::getComponentDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pComponentDesc, &TPMTTable::getComponentDescriptor, inherit, inherited);
}

TMosaicDescriptor* TProgramMap::getMosaicDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pMosaicDesc, &TPMTTable::getMosaicDescriptor, inherit, inherited);
}

TStreamIdentifierDescriptor* TProgramMap::getStreamIdentifierDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pStreamIdentifierDesc, &TPMTTable::getStreamIdentifierDescriptor, inherit, inherited);
}

TParentalRatingDescriptor* TProgramMap::getParentalRatingDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pParentalRatingDesc, &TPMTTable::getParentalRatingDescriptor, inherit, inherited);
}

THierarchicalTransmissionDescriptor* TProgramMap::getHierarchicalTransmissionDescriptor(BOOL inherit,
                                                                                        BOOL* inherited) const
{
    return inheritable(m_pHierarchicalTransmDesc, &TPMTTable::getHierarchicalTransmissionDescriptor, inherit,
                       inherited);
}

TDigitalCopyControlDescriptor* TProgramMap::getDigitalCopyControlDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pDigitalCopyControlDesc, &TPMTTable::getDigitalCopyControlDescriptor, inherit, inherited);
}

TEmergencyInformationDescriptor* TProgramMap::getEmergencyInformationDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pEmergencyInfoDesc, &TPMTTable::getEmergencyInformationDescriptor, inherit, inherited);
}

TDataComponentDescriptor* TProgramMap::getDataComponentDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pDataComponentDesc, &TPMTTable::getDataComponentDescriptor, inherit, inherited);
}

TSystemManagementDescriptor* TProgramMap::getSystemManagementDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pSystemMngDesc, &TPMTTable::getSystemManagementDescriptor, inherit, inherited);
}

TTargetRegionDescriptor* TProgramMap::getTargetRegionDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pTargetRegionDesc, &TPMTTable::getTargetRegionDescriptor, inherit, inherited);
}

TVideoDecodeControlDescriptor* TProgramMap::getVideoDecodeControlDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pVideoDecodeControlDesc, &TPMTTable::getVideoDecodeControlDescriptor, inherit, inherited);
}

TContentAvailabilityDescriptor* TProgramMap::getContentAvailabilityDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pContentAvailabilityDesc, &TPMTTable::getContentAvailabilityDescriptor, inherit,
                       inherited);
}

TCarouselCompatibleCompositeDescriptor* TProgramMap::getCarouselCompatibleCompositeDescriptor(BOOL inherit,
                                                                                              BOOL* inherited) const
{
    return inheritable(m_pCarouselCompCompoDesc, &TPMTTable::getCarouselCompatibleCompositeDescriptor, inherit,
                       inherited);
}

TConditionalPlaybackDescriptor* TProgramMap::getConditionalPlaybackDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pConditionalPlaybackDesc, &TPMTTable::getConditionalPlaybackDescriptor, inherit,
                       inherited);
}

TAVCVideoDescriptor* TProgramMap::getAVCVideoDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pAVCVideoDescriptor, &TPMTTable::getAVCVideoDescriptor, inherit, inherited);
}

TAVCTimingAndHRDDescriptor* TProgramMap::getAVCTimingAndHRDDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pAVCTimingAndHRDDesc, &TPMTTable::getAVCTimingAndHRDDescriptor, inherit, inherited);
}

TAACDescriptor* TProgramMap::getAACDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pAACDesc, &TPMTTable::getAACDescriptor, inherit, inherited);
}

TCarouselIdentifierDescriptor* TProgramMap::getCarouselIdentifierDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pCarouselIdentDesc, &TPMTTable::getCarouselIdentifierDescriptor, inherit, inherited);
}

TISO639LanguageDescriptor* TProgramMap::getISO639LanguageDescriptor(BOOL inherit, BOOL* inherited) const
{
    return inheritable(m_pISO639LanguageDescriptor, &TPMTTable::getISO639LanguageDescriptor, inherit, inherited);
}

} // namespace Vuro
