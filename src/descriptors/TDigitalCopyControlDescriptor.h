#ifndef VURO_TDIGITAL_COPY_CONTROL_DESCRIPTOR_H
#define VURO_TDIGITAL_COPY_CONTROL_DESCRIPTOR_H

#include "../TISDBTItemList.h"
#include "TDigitalCopyControlDescriptorItem.h"
#include "TISDBTDescriptor.h"

namespace Vuro {

/// digital_copy_control_descriptor (0xC1): digital_recording_control_data (2)
/// maximum_bitrate_flag (1) component_control_flag (1) copy_control_type (2)
/// APS_control_data (2) [maximum_bitrate (8)] [component_control_length (8)
/// and the component entries], the entries kept in arrival order.
class TDigitalCopyControlDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0xC1;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 1;

    /// copy_control_type values.
    static constexpr VURO_U8 COPY_CONTROL_FREE = 0;
    static constexpr VURO_U8 COPY_CONTROL_SD_FREE_ORIGINAL_ONCE = 1;
    static constexpr VURO_U8 COPY_CONTROL_SD_FREE = 3;

    TDigitalCopyControlDescriptor(U8* data, U32 length);
    virtual ~TDigitalCopyControlDescriptor();

    /// *parsedLength receives the bytes walked after the length byte.
    static TDigitalCopyControlDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                U16* errorCode);
    static TDigitalCopyControlDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                U16* errorCode, const U8* limit);

    U8 getDigitalRecordingControlData() const { return m_iDigitalRecCtrlData; }
    BOOL hasMaximumBitrate() const { return m_bMaximumBitrate; }
    BOOL hasComponentControl() const { return m_bComponentControl; }
    U8 getCopyControlType() const { return m_iCopyControlType; }
    U8 getAPSControlData() const { return m_iAPSControlData; }
    /// maximum_bitrate (8), in units of 1/4 Mbit/s; read only with maximum_bitrate_flag.
    U8 getMaximumBitrate() const { return m_iMaximumBitrate; }

    /// Component entries by 0-based position; null / FALSE past the end.
    U32 size() const { return m_pItems.size(); }
    void add(TDigitalCopyControlDescriptorItem* item) { m_pItems.add(item); }
    TDigitalCopyControlDescriptorItem* get(VURO_U32 index) const { return m_pItems.get(index); }
    /// Unlinks and deletes the entry.
    BOOL remove(VURO_U32 index) { return m_pItems.remove(index); }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U8 m_iDigitalRecCtrlData;
    VURO_BOOL m_bMaximumBitrate;
    VURO_BOOL m_bComponentControl;
    VURO_U8 m_iCopyControlType;
    VURO_U8 m_iAPSControlData;
    VURO_U8 m_iMaximumBitrate;
    TISDBTItemList<TDigitalCopyControlDescriptorItem> m_pItems;
};

} // namespace Vuro

#endif
