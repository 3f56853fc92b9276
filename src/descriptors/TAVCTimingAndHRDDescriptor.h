#ifndef VURO_TAVC_TIMING_AND_HRD_DESCRIPTOR_H
#define VURO_TAVC_TIMING_AND_HRD_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// AVC_timing_and_HRD_descriptor (0x2A): hrd_management_valid_flag (1)
/// reserved (6) picture_and_timing_info_present (1); when present:
/// 90kHz_flag (1) reserved (7) [N (32) K (32) when the flag is 0]
/// num_units_in_tick (32); then fixed_frame_rate_flag (1) temporal_poc_flag (1)
/// picture_to_display_conversion_flag (1) reserved (5).
class TAVCTimingAndHRDDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x2A;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 2;

    TAVCTimingAndHRDDescriptor(U8* data, U32 length);
    virtual ~TAVCTimingAndHRDDescriptor();

    /// *parsedLength receives 2 without timing info, 3 with it, 11 with N and K.
    static TAVCTimingAndHRDDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TAVCTimingAndHRDDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                             const U8* limit);

    BOOL isHRDManagementValid() const { return m_bHRDManagementValid; }
    BOOL isPictTimingInfoPresent() const { return m_bPictTimingInfoPresent; }
    BOOL is90kHz() const { return m_b90kHzFlag; }
    U32 getN() const { return m_iN; }
    U32 getK() const { return m_iK; }
    U32 getNumUnitsInTick() const { return m_iNumUnitsInTick; }
    BOOL isFixedFrameRate() const { return m_bFixedFrameRateFlag; }
    BOOL isTemporalPOC() const { return m_bTemporalPOCFlag; }
    BOOL isPict2DisplayConv() const { return m_bPict2DisplayConvFlag; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_BOOL m_bHRDManagementValid;
    VURO_BOOL m_bPictTimingInfoPresent;
    VURO_BOOL m_b90kHzFlag;
    VURO_U32 m_iN;
    VURO_U32 m_iK;
    VURO_U32 m_iNumUnitsInTick;
    VURO_BOOL m_bFixedFrameRateFlag;
    VURO_BOOL m_bTemporalPOCFlag;
    VURO_BOOL m_bPict2DisplayConvFlag;
};

} // namespace Vuro

#endif
