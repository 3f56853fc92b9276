#ifndef VURO_TDIGITAL_COPY_CONTROL_DESCRIPTOR_ITEM_H
#define VURO_TDIGITAL_COPY_CONTROL_DESCRIPTOR_ITEM_H

#include "../TISDBTParseArena.h"
#include "../utils/VuroISDBTUtils.h"

namespace Vuro {

/// One component entry of a digital copy control descriptor. The broadcast
/// entry is component_tag (8) digital_recording_control_data (2)
/// maximum_bitrate_flag (1) reserved (1) copy_control_type (2)
/// APS_control_data (2) [maximum_bitrate (8)]; see parse for how it is read.
class TDigitalCopyControlDescriptorItem : public TISDBTArenaObject {
public:
    TDigitalCopyControlDescriptorItem();
    virtual ~TDigitalCopyControlDescriptorItem();

    /// No component_tag is read: byte 0 is taken as the flags byte and byte 1,
    /// when the maximum_bitrate_flag is set, as the bitrate, so the component
    /// tag stays 0. The receiver's copy-control code reads the entries so;
    /// intended. *itemLength is 1, or 2 with the bitrate.
    static TDigitalCopyControlDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength,
                                                    U16* errorCode);
    static TDigitalCopyControlDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength,
                                                    U16* errorCode, const U8* limit);

    U8 getComponentTag() const { return m_iComponentTag; }
    U8 getDigitalRecordingControlData() const { return m_iDigitalRecCtrlData; }
    BOOL hasMaximumBitrate() const { return m_bMaximumBitrate; }
    U8 getCopyControlType() const { return m_iCopyControlType; }
    U8 getAPSControlData() const { return m_iAPSControlData; }
    U8 getMaximumBitrate() const { return m_iMaximumBitrate; }

private:
    VURO_U8 m_iComponentTag;
    VURO_U8 m_iDigitalRecCtrlData;
    VURO_BOOL m_bMaximumBitrate;
    VURO_U8 m_iCopyControlType;
    VURO_U8 m_iAPSControlData;
    VURO_U8 m_iMaximumBitrate;
};

} // namespace Vuro

#endif
