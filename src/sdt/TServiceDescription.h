#ifndef VURO_TSERVICE_DESCRIPTION_H
#define VURO_TSERVICE_DESCRIPTION_H

#include <list>

#include "../TISDBTParseArena.h"
#include "../descriptors/TBouquetNameDescriptor.h"
#include "../descriptors/TCAIdentifierDescriptor.h"
#include "../descriptors/TContentAvailabilityDescriptor.h"
#include "../descriptors/TCountryAvailabilityDescriptor.h"
#include "../descriptors/TDigitalCopyControlDescriptor.h"
#include "../descriptors/TLinkageDescriptor.h"
#include "../descriptors/TLogoTransmissionDescriptor.h"
#include "../descriptors/TMosaicDescriptor.h"
#include "../descriptors/TNVODReferenceDescriptor.h"
#include "../descriptors/TServiceDescriptor.h"
#include "../descriptors/TTimeShiftedServiceDescriptor.h"

namespace Vuro {

/// One service of a service description section: service_id (16),
/// reserved_future_use (6), EIT_schedule_flag (1), EIT_present_following_flag
/// (1), running_status (3), free_CA_mode (1), descriptors_loop_length (12),
/// descriptors. One descriptor per kind.
class TServiceDescription : public TISDBTArenaObject {
public:
    /// running_status values.
    static constexpr VURO_U16 RUNNING_STATUS_NOT_RUNNING = 1;
    static constexpr VURO_U16 RUNNING_STATUS_STARTS_IN_A_FEW_MINUTES = 2;
    static constexpr VURO_U16 RUNNING_STATUS_PAUSING = 3;
    static constexpr VURO_U16 RUNNING_STATUS_RUNNING = 4;
    /// free_CA_mode values.
    static constexpr VURO_U16 FREE_CA_MODE_NOT_SCRAMBLED = 0;
    static constexpr VURO_U16 FREE_CA_MODE_CA_SYSTEM = 1;

    TServiceDescription();
    virtual ~TServiceDescription();

    TServiceDescription(const TServiceDescription&) = delete;
    TServiceDescription& operator=(const TServiceDescription&) = delete;

    /// dataLength is what remains of the section, not of the service.
    /// Descriptors are always parsed (parseDescriptors has no effect); stuffing
    /// is skipped silently, other tags the service does not keep with a log
    /// line. The descriptors borrow sectionData. On success *itemLength
    /// receives the bytes consumed.
    static TServiceDescription* parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, U32* itemLength,
                                      U16* errorCode);
    /// Same, reading nothing at or beyond limit (the end of the section buffer).
    static TServiceDescription* parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, U32* itemLength,
                                      U16* errorCode, const U8* limit);

    U16 getServiceID() const { return m_iServiceID; }
    BOOL hasEITSchedule() const { return m_bEITSchedule; }
    BOOL hasEITPresentFollowing() const { return m_bEITPresentFollowing; }
    U8 getRunningStatus() const { return m_iRunningStatus; }
    U8 getFreeCAMode() const { return m_iFreeCAMode; }

    /// The descriptor kept for tag 0x47, 0x48, 0x49, 0x4A, 0x4B, 0x4C, 0x51,
    /// 0x53, 0xC1, 0xCF or 0xDE; null for any other tag or an empty slot.
    TISDBTDescriptor* getDescriptor(U8 descriptorTag) const;
    /// Tags of the descriptors kept, in the order 0x48, 0x47, 0x49, 0x4A,
    /// 0xC1, 0xCF, 0xDE, 0x4B, 0x4C, 0x51, 0x53.
    std::list<U8> getDescriptorTags() const;

    TServiceDescriptor* getServiceDescriptor() const { return m_pServiceDesc; }
    TBouquetNameDescriptor* getBouquetNameDescriptor() const { return m_pBouquetNameDesc; }
    TCountryAvailabilityDescriptor* getCountryAvailabilityDescriptor() const { return m_pCountryAvailabilityDesc; }
    TLinkageDescriptor* getLinkageDescriptor() const { return m_pLinkageDesc; }
    TNVODReferenceDescriptor* getNVODReferenceDescriptor() const { return m_pNVODReferenceDesc; }
    TTimeShiftedServiceDescriptor* getTimeShiftedServiceDescriptor() const { return m_pTimeShiftServiceDesc; }
    TMosaicDescriptor* getMosaicDescriptor() const { return m_pMosaicDesc; }
    TCAIdentifierDescriptor* getCAIdentifierDescriptor() const { return m_pCAIdentifierDesc; }
    TDigitalCopyControlDescriptor* getDigitalCopyControlDescriptor() const { return m_pDigitalCopyControlDesc; }
    TLogoTransmissionDescriptor* getLogoTransmissionDescriptor() const { return m_pLogoTransmissionDesc; }
    TContentAvailabilityDescriptor* getContentAvailabilityDescriptor() const { return m_pContentAvailabilityDesc; }

private:
    template <class SlotList>
    friend class TISDBTDescriptorSlots;

    // Calls visit on each descriptor slot, in member order.
    template <class Self, class Visit>
    static void forEachSlot(Self& self, Visit visit);
    static TServiceDescription* rejectLength(TServiceDescription* service, U32 length, U32 available,
                                             U16* errorCode);

    VURO_U16 m_iServiceID;
    VURO_BOOL m_bEITSchedule;
    VURO_BOOL m_bEITPresentFollowing;
    VURO_U8 m_iRunningStatus;
    VURO_U8 m_iFreeCAMode;
    TServiceDescriptor* m_pServiceDesc;
    TBouquetNameDescriptor* m_pBouquetNameDesc;
    TCountryAvailabilityDescriptor* m_pCountryAvailabilityDesc;
    TLinkageDescriptor* m_pLinkageDesc;
    TDigitalCopyControlDescriptor* m_pDigitalCopyControlDesc;
    TLogoTransmissionDescriptor* m_pLogoTransmissionDesc;
    TContentAvailabilityDescriptor* m_pContentAvailabilityDesc;
    TNVODReferenceDescriptor* m_pNVODReferenceDesc;
    TTimeShiftedServiceDescriptor* m_pTimeShiftServiceDesc;
    TMosaicDescriptor* m_pMosaicDesc;
    TCAIdentifierDescriptor* m_pCAIdentifierDesc;
};

} // namespace Vuro

#endif
