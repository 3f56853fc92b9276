#ifndef VURO_TAVC_VIDEO_DESCRIPTOR_H
#define VURO_TAVC_VIDEO_DESCRIPTOR_H

#include "TISDBTDescriptor.h"
#include "TVideoEncodeFormat.h"

namespace Vuro {

/// AVC_video_descriptor (0x28): profile_idc (8) constraint_set0/1/2 flags (3)
/// AVC_compatible_flags (5) level_idc (8) AVC_still_present (1)
/// AVC_24_hour_picture_flag (1) reserved (6).
class TAVCVideoDescriptor : public TISDBTDescriptor, public TVideoEncodeFormat {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x28;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 4;
    // VIDEO_ENCODE_FORMAT_* come from TVideoEncodeFormat.

    TAVCVideoDescriptor(U8* data, U32 length);
    virtual ~TAVCVideoDescriptor();

    /// *parsedLength receives 4.
    static TAVCVideoDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TAVCVideoDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                      const U8* limit);

    U8 getProfileIDC() const { return m_iProfileIDC; }
    BOOL isConstraintSet0() const { return m_bConstraintSet0Flag; }
    BOOL isConstraintSet1() const { return m_bConstraintSet1Flag; }
    BOOL isConstraintSet2() const { return m_bConstraintSet2Flag; }
    U8 getAVCCompatibleFlags() const { return m_iAVCCompatibleFlags; }
    U8 getLevelIDC() const { return m_iLevelIDC; }
    BOOL isAVCStillPresent() const { return m_bAVCStillPresent; }
    BOOL isAVC24HourPicture() const { return m_bAVC24HourPictureFlag; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U8 m_iProfileIDC;
    VURO_BOOL m_bConstraintSet0Flag;
    VURO_BOOL m_bConstraintSet1Flag;
    VURO_BOOL m_bConstraintSet2Flag;
    VURO_U8 m_iAVCCompatibleFlags;
    VURO_U8 m_iLevelIDC;
    VURO_BOOL m_bAVCStillPresent;
    VURO_BOOL m_bAVC24HourPictureFlag;
};

} // namespace Vuro

#endif
