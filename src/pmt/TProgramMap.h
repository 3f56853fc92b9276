#ifndef VURO_TPROGRAM_MAP_H
#define VURO_TPROGRAM_MAP_H

#include <list>

#include "../TISDBTParseArena.h"
#include "../descriptors/TAACDescriptor.h"
#include "../descriptors/TAVCTimingAndHRDDescriptor.h"
#include "../descriptors/TAVCVideoDescriptor.h"
#include "../descriptors/TCAIdentifierDescriptor.h"
#include "../descriptors/TCarouselCompatibleCompositeDescriptor.h"
#include "../descriptors/TCarouselIdentifierDescriptor.h"
#include "../descriptors/TComponentDescriptor.h"
#include "../descriptors/TConditionalPlaybackDescriptor.h"
#include "../descriptors/TContentAvailabilityDescriptor.h"
#include "../descriptors/TCopyrightDescriptor.h"
#include "../descriptors/TCountryAvailabilityDescriptor.h"
#include "../descriptors/TDataComponentDescriptor.h"
#include "../descriptors/TDigitalCopyControlDescriptor.h"
#include "../descriptors/TEmergencyInformationDescriptor.h"
#include "../descriptors/THierarchicalTransmissionDescriptor.h"
#include "../descriptors/TISO639LanguageDescriptor.h"
#include "../descriptors/TLinkageDescriptor.h"
#include "../descriptors/TMosaicDescriptor.h"
#include "../descriptors/TParentalRatingDescriptor.h"
#include "../descriptors/TStreamIdentifierDescriptor.h"
#include "../descriptors/TSystemManagementDescriptor.h"
#include "../descriptors/TTargetRegionDescriptor.h"
#include "../descriptors/TVideoDecodeControlDescriptor.h"

namespace Vuro {

class TPMTTable;
template <class Owner>
class TStreamDescriptorSlots;

/// One elementary stream of a program map section: stream_type (8),
/// reserved (3), elementary_PID (13), reserved (4), ES_info_length (12), then
/// the ES_info descriptors, of which one per kind is kept. A stream may be
/// linked to its table, whose programme-level descriptors then answer for the
/// kinds the stream lacks.
class TProgramMap : public TISDBTArenaObject {
    friend class TStreamDescriptorSlots<TProgramMap>;

public:
    /// stream_type values (ISO/IEC 13818-1 and ARIB assignments), offered to
    /// callers; the parse does not look at the stream_type.
    static constexpr VURO_U8 STREAM_TYPE_0X01 = 0x01;
    static constexpr VURO_U8 STREAM_TYPE_0X02 = 0x02;
    static constexpr VURO_U8 STREAM_TYPE_0X03 = 0x03;
    static constexpr VURO_U8 STREAM_TYPE_0X04 = 0x04;
    static constexpr VURO_U8 STREAM_TYPE_SECTION = 0x05;
    static constexpr VURO_U8 STREAM_TYPE_PES_PACKAGE = 0x06;
    static constexpr VURO_U8 STREAM_TYPE_0X07 = 0x07;
    static constexpr VURO_U8 STREAM_TYPE_0X08 = 0x08;
    static constexpr VURO_U8 STREAM_TYPE_0X09 = 0x09;
    static constexpr VURO_U8 STREAM_TYPE_0X0A = 0x0A;
    static constexpr VURO_U8 STREAM_TYPE_0X0B = 0x0B;
    static constexpr VURO_U8 STREAM_TYPE_0X0C = 0x0C;
    static constexpr VURO_U8 STREAM_TYPE_0X0D = 0x0D;
    static constexpr VURO_U8 STREAM_TYPE_0X0E = 0x0E;
    static constexpr VURO_U8 STREAM_TYPE_0X0F = 0x0F;
    static constexpr VURO_U8 STREAM_TYPE_0X10 = 0x10;
    static constexpr VURO_U8 STREAM_TYPE_0X11 = 0x11;
    static constexpr VURO_U8 STREAM_TYPE_PKG_STREAM_OR_FLEXMUX_STREAM_PES = 0x12;
    static constexpr VURO_U8 STREAM_TYPE_PKG_STREAM_OR_FLEXMUX_STREAM_14496 = 0x13;
    static constexpr VURO_U8 STREAM_TYPE_DOWN_SYNC_PROTOCOL = 0x14;
    static constexpr VURO_U8 STREAM_TYPE_METADATA_TRANSP_BY_PES_PACKAGE = 0x15;
    static constexpr VURO_U8 STREAM_TYPE_METADATA_TRANSP_BY_METADATA_SECTION = 0x16;
    static constexpr VURO_U8 STREAM_TYPE_METADATA_TRANSP_BY_DATA_CAROUSEL = 0x17;
    static constexpr VURO_U8 STREAM_TYPE_METADATA_TRANSP_BY_OBJECT_CAROUSEL = 0x18;
    static constexpr VURO_U8 STREAM_TYPE_METADATA_TRANSP_DOWNLOAD_SYNC_PROT = 0x19;
    static constexpr VURO_U8 STREAM_TYPE_IPMP_STREAM = 0x1A;
    static constexpr VURO_U8 STREAM_TYPE_VIDEO = 0x1B;
    static constexpr VURO_U8 STREAM_TYPE_DATA_PIPING = 0x7E;
    static constexpr VURO_U8 STREAM_TYPE_IPMP_STREAM_2 = 0x7F;
    static constexpr VURO_U8 STREAM_TYPE_AC3 = 0x81;

    TProgramMap();
    virtual ~TProgramMap();

    /// Entries move between owners as pointers only.
    TProgramMap(const TProgramMap&) = delete;
    TProgramMap& operator=(const TProgramMap&) = delete;

    /// dataLength is what remains of the section body from sectionData on.
    /// Descriptors are always parsed (parseDescriptors has no effect); empty
    /// ones and unknown tags are skipped without a log line. On success
    /// *itemLength receives the bytes consumed. The descriptors borrow the
    /// bytes they were parsed from.
    static TProgramMap* parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, U32* itemLength,
                              U16* errorCode);
    /// Same, reading nothing at or beyond limit (the end of the section buffer).
    static TProgramMap* parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, U32* itemLength,
                              U16* errorCode, const U8* limit);

    /// The table whose programme-level descriptors the getters fall back on
    /// when asked to inherit; not owned. Nothing sets it but this call (the
    /// table's parse does not).
    void setParentPMTTable(TPMTTable* parent) { m_pParentPMTTable = parent; }

    U8 getStreamType() const { return m_iStreamType; }
    U16 getElementaryPID() const { return m_iElementaryPID; }

    /// The entry's own descriptor for 0x0A, 0x0D, 0x13, 0x28, 0x2A, 0x49,
    /// 0x4A, 0x50, 0x51, 0x52, 0x53, 0x55, 0x7C, 0xC0, 0xC1, 0xC6, 0xC8, 0xF7,
    /// 0xF8, 0xFC, 0xFD or 0xFE; null otherwise, 0xDE included (reach content
    /// availability through its getter). Never asks the parent.
    TISDBTDescriptor* getDescriptor(U8 tag) const;
    /// Tags of the entry's own descriptors in member order, never 0xDE.
    std::list<U8> getDescriptorTags() const;

    /// With inherit set, an entry lacking the descriptor asks its parent table
    /// (when linked); a descriptor found there sets *inherited (when given) to
    /// TRUE. *inherited is never set to FALSE: the caller initialises it.
    /// Without inherit, or with the entry's own descriptor, returns that (or null).
    TCAIdentifierDescriptor* getCAIdentifierDescriptor(BOOL inherit, BOOL* inherited) const;
    TCopyrightDescriptor* getCopyrightDescriptor(BOOL inherit, BOOL* inherited) const;
    TCountryAvailabilityDescriptor* getCountryAvailabilityDescriptor(BOOL inherit, BOOL* inherited) const;
    TLinkageDescriptor* getLinkageDescriptor(BOOL inherit, BOOL* inherited) const;
    TComponentDescriptor* getComponentDescriptor(BOOL inherit, BOOL* inherited) const;
    TMosaicDescriptor* getMosaicDescriptor(BOOL inherit, BOOL* inherited) const;
    TStreamIdentifierDescriptor* getStreamIdentifierDescriptor(BOOL inherit, BOOL* inherited) const;
    TParentalRatingDescriptor* getParentalRatingDescriptor(BOOL inherit, BOOL* inherited) const;
    THierarchicalTransmissionDescriptor* getHierarchicalTransmissionDescriptor(BOOL inherit, BOOL* inherited) const;
    TDigitalCopyControlDescriptor* getDigitalCopyControlDescriptor(BOOL inherit, BOOL* inherited) const;
    TEmergencyInformationDescriptor* getEmergencyInformationDescriptor(BOOL inherit, BOOL* inherited) const;
    TDataComponentDescriptor* getDataComponentDescriptor(BOOL inherit, BOOL* inherited) const;
    TSystemManagementDescriptor* getSystemManagementDescriptor(BOOL inherit, BOOL* inherited) const;
    TTargetRegionDescriptor* getTargetRegionDescriptor(BOOL inherit, BOOL* inherited) const;
    TVideoDecodeControlDescriptor* getVideoDecodeControlDescriptor(BOOL inherit, BOOL* inherited) const;
    TContentAvailabilityDescriptor* getContentAvailabilityDescriptor(BOOL inherit, BOOL* inherited) const;
    TCarouselCompatibleCompositeDescriptor* getCarouselCompatibleCompositeDescriptor(BOOL inherit,
                                                                                     BOOL* inherited) const;
    TConditionalPlaybackDescriptor* getConditionalPlaybackDescriptor(BOOL inherit, BOOL* inherited) const;
    TAVCVideoDescriptor* getAVCVideoDescriptor(BOOL inherit, BOOL* inherited) const;
    TAVCTimingAndHRDDescriptor* getAVCTimingAndHRDDescriptor(BOOL inherit, BOOL* inherited) const;
    TAACDescriptor* getAACDescriptor(BOOL inherit, BOOL* inherited) const;
    TCarouselIdentifierDescriptor* getCarouselIdentifierDescriptor(BOOL inherit, BOOL* inherited) const;
    TISO639LanguageDescriptor* getISO639LanguageDescriptor(BOOL inherit, BOOL* inherited) const;

private:
    template <class D>
    D* inheritable(D* own, D* (TPMTTable::*parentGetter)() const, BOOL inherit, BOOL* inherited) const;

    // Logs the entry's "%u > %u" length line, stores ERROR_INVALID_DATA_LENGTH
    // and returns FALSE.
    static BOOL rejectLength(U32 length, U32 available, U16* errorCode);

    TPMTTable* m_pParentPMTTable;
    VURO_U8 m_iStreamType;
    VURO_U16 m_iElementaryPID;
    TCAIdentifierDescriptor* m_pCAIdentifierDesc = nullptr;
    TCopyrightDescriptor* m_pCopyrightDesc = nullptr;
    TCountryAvailabilityDescriptor* m_pCountryAvailabilityDesc = nullptr;
    TLinkageDescriptor* m_pLinkageDesc = nullptr;
    TComponentDescriptor* m_pComponentDesc = nullptr;
    TMosaicDescriptor* m_pMosaicDesc = nullptr;
    TStreamIdentifierDescriptor* m_pStreamIdentifierDesc = nullptr;
    TParentalRatingDescriptor* m_pParentalRatingDesc = nullptr;
    THierarchicalTransmissionDescriptor* m_pHierarchicalTransmDesc = nullptr;
    TDigitalCopyControlDescriptor* m_pDigitalCopyControlDesc = nullptr;
    TEmergencyInformationDescriptor* m_pEmergencyInfoDesc = nullptr;
    TDataComponentDescriptor* m_pDataComponentDesc = nullptr;
    TSystemManagementDescriptor* m_pSystemMngDesc = nullptr;
    TTargetRegionDescriptor* m_pTargetRegionDesc = nullptr;
    TVideoDecodeControlDescriptor* m_pVideoDecodeControlDesc = nullptr;
    TContentAvailabilityDescriptor* m_pContentAvailabilityDesc = nullptr;
    TCarouselCompatibleCompositeDescriptor* m_pCarouselCompCompoDesc = nullptr;
    TConditionalPlaybackDescriptor* m_pConditionalPlaybackDesc = nullptr;
    TAVCVideoDescriptor* m_pAVCVideoDescriptor = nullptr;
    TAVCTimingAndHRDDescriptor* m_pAVCTimingAndHRDDesc = nullptr;
    TAACDescriptor* m_pAACDesc = nullptr;
    TCarouselIdentifierDescriptor* m_pCarouselIdentDesc = nullptr;
    TISO639LanguageDescriptor* m_pISO639LanguageDescriptor = nullptr;
    VURO_U32 m_iFilledSlots = 0; ///< the descriptor slots a parse filled, one bit each
};

} // namespace Vuro

#endif
