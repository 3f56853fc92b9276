#ifndef VURO_TVIDEO_DECODE_CONTROL_DESCRIPTOR_H
#define VURO_TVIDEO_DECODE_CONTROL_DESCRIPTOR_H

#include "TISDBTDescriptor.h"
#include "TVideoEncodeFormat.h"

namespace Vuro {

/// video_decode_control_descriptor (0xC8): still_picture_flag (1)
/// sequence_end_code_flag (1) video_encode_format (4) reserved (2).
class TVideoDecodeControlDescriptor : public TISDBTDescriptor, public TVideoEncodeFormat {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0xC8;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 1;
    // VIDEO_ENCODE_FORMAT_* come from TVideoEncodeFormat.

    TVideoDecodeControlDescriptor(U8* data, U32 length);
    virtual ~TVideoDecodeControlDescriptor();

    /// *parsedLength receives 1.
    static TVideoDecodeControlDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                U16* errorCode);
    static TVideoDecodeControlDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                U16* errorCode, const U8* limit);

    BOOL isStillPicture() const { return m_bStillPictureFlag; }
    BOOL isSequenceEndCode() const { return m_bSequenceEndCodeFlag; }
    U8 getVideoEncodeFormat() const { return m_iVideoEncodeFormat; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_BOOL m_bStillPictureFlag;
    VURO_BOOL m_bSequenceEndCodeFlag;
    VURO_U8 m_iVideoEncodeFormat;
};

} // namespace Vuro

#endif
