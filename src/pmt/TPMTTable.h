#ifndef VURO_TPMT_TABLE_H
#define VURO_TPMT_TABLE_H

#include <list>

#include "../TISDBTItemList.h"
#include "../TISDBTVersionedTable.h"
#include "TProgramMap.h"

namespace Vuro {

/// TS_program_map_section (table_id 0x02, on the PID the PAT announces):
/// program_number, PCR_PID, the programme-level descriptors of the
/// program_info loop kept one per kind, and the elementary streams in section
/// order.
class TPMTTable : public TISDBTVersionedTable {
    friend class TISDBTTable;
    friend class TStreamDescriptorSlots<TPMTTable>;

public:
    /// PCR_PID and program_info_length.
    static constexpr VURO_U32 MINIMUM_DATA_LENGTH = 4;

    TPMTTable(U8* sectionData, U32 dataLength);
    virtual ~TPMTTable();

    TPMTTable(const TPMTTable&) = delete;
    TPMTTable& operator=(const TPMTTable&) = delete;

    /// Note the flag order: parseDescriptors (no effect: descriptors are always
    /// parsed), then checkCRC32 (never verified). The body is read from the
    /// table's own copy, so its descriptors, the streams' included, live as
    /// long as the table. The streams' parent links are left unset.
    static TPMTTable* parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, BOOL checkCRC32,
                            U16* errorCode, TPMTTable* previous);

    U16 getProgramNumber() const { return m_iGenericDataField; }
    U16 getPCRPID() const { return m_iPCRPID; }

    /// Number of streams.
    U32 size() const { return m_pItems.size(); }
    /// Appends and takes ownership; no duplicate check, no parent link set.
    void addProgramMap(TProgramMap* item) { m_pItems.add(item); }
    /// The stream at 0-based position index in section order; null at or
    /// beyond size().
    TProgramMap* getProgramMap(U8 index) const { return m_pItems.get(index); }
    /// Deletes the stream at index and returns TRUE; FALSE at or beyond size()
    /// (or for a null entry). Pointers to it from earlier look-ups dangle.
    BOOL removeProgramMap(U8 index) { return m_pItems.remove(index); }

    /// The look-ups return new lists of borrowed entries, in section order.
    /// Every stream of that stream_type; the two names are one operation.
    std::list<TProgramMap*> getProgramMapByStreamType(U8 streamType) const;
    std::list<TProgramMap*> getProgramMapsByStreamType(U8 streamType) const;
    /// Every stream whose own stream identifier descriptor (not inherited)
    /// carries that component_tag.
    std::list<TProgramMap*> getProgramMapByComponentTag(U8 componentTag) const;
    /// Every stream of that stream_type whose own data component descriptor
    /// carries data_component_id componentID. The id is taken in 8 bits, so
    /// data_component_id values above 0xFF never match; callers rely on the
    /// narrow argument, which stays.
    std::list<TProgramMap*> getProgramMap(U8 streamType, U8 componentID) const;

    /// The programme-level descriptor for the tags TProgramMap::getDescriptor
    /// answers (0xDE deliberately not among them); null otherwise.
    TISDBTDescriptor* getDescriptor(U8 tag) const override;
    /// Tags of the programme-level descriptors in member order, never 0xDE.
    std::list<U8> getDescriptorTags() const override;

    /// Programme-level descriptors, null when the program_info loop had none.
    TCAIdentifierDescriptor* getCAIdentifierDescriptor() const { return m_pCAIdentifierDesc; }
    TCopyrightDescriptor* getCopyrightDescriptor() const { return m_pCopyrightDesc; }
    TCountryAvailabilityDescriptor* getCountryAvailabilityDescriptor() const { return m_pCountryAvailabilityDesc; }
    TLinkageDescriptor* getLinkageDescriptor() const { return m_pLinkageDesc; }
    TComponentDescriptor* getComponentDescriptor() const { return m_pComponentDesc; }
    TMosaicDescriptor* getMosaicDescriptor() const { return m_pMosaicDesc; }
    TStreamIdentifierDescriptor* getStreamIdentifierDescriptor() const { return m_pStreamIdentifierDesc; }
    TParentalRatingDescriptor* getParentalRatingDescriptor() const { return m_pParentalRatingDesc; }
    THierarchicalTransmissionDescriptor* getHierarchicalTransmissionDescriptor() const
    {
        return m_pHierarchicalTransmDesc;
    }
    TDigitalCopyControlDescriptor* getDigitalCopyControlDescriptor() const { return m_pDigitalCopyControlDesc; }
    TEmergencyInformationDescriptor* getEmergencyInformationDescriptor() const { return m_pEmergencyInfoDesc; }
    TDataComponentDescriptor* getDataComponentDescriptor() const { return m_pDataComponentDesc; }
    TSystemManagementDescriptor* getSystemManagementDescriptor() const { return m_pSystemMngDesc; }
    TTargetRegionDescriptor* getTargetRegionDescriptor() const { return m_pTargetRegionDesc; }
    TVideoDecodeControlDescriptor* getVideoDecodeControlDescriptor() const { return m_pVideoDecodeControlDesc; }
    TContentAvailabilityDescriptor* getContentAvailabilityDescriptor() const { return m_pContentAvailabilityDesc; }
    TCarouselCompatibleCompositeDescriptor* getCarouselCompatibleCompositeDescriptor() const
    {
        return m_pCarouselCompCompoDesc;
    }
    TConditionalPlaybackDescriptor* getConditionalPlaybackDescriptor() const { return m_pConditionalPlaybackDesc; }
    TAVCVideoDescriptor* getAVCVideoDescriptor() const { return m_pAVCVideoDescriptor; }
    TAVCTimingAndHRDDescriptor* getAVCTimingAndHRDDescriptor() const { return m_pAVCTimingAndHRDDesc; }
    TAACDescriptor* getAACDescriptor() const { return m_pAACDesc; }
    TCarouselIdentifierDescriptor* getCarouselIdentifierDescriptor() const { return m_pCarouselIdentDesc; }
    TISO639LanguageDescriptor* getISO639LanguageDescriptor() const { return m_pISO639LanguageDescriptor; }

private:
    BodyResult parseBody(U8* sectionData, U32 dataLength, U16 bodyLength, BOOL parseDescriptors, U16* errorCode);
    // Logs the table's "%u > %u" length line, stores ERROR_INVALID_DATA_LENGTH
    // and returns FALSE.
    static BOOL rejectLength(U32 length, U32 available, U16* errorCode);
    // The streams for which match holds, in section order.
    template <class Match>
    std::list<TProgramMap*> select(Match match) const;

    VURO_U16 m_iPCRPID;
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
    TISDBTItemList<TProgramMap> m_pItems;
};

} // namespace Vuro

#endif
