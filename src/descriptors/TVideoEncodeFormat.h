#ifndef VURO_TVIDEO_ENCODE_FORMAT_H
#define VURO_TVIDEO_ENCODE_FORMAT_H

#include "../utils/VuroISDBTUtils.h"

namespace Vuro {

/// video_encode_format values, as the video decode control descriptor signals
/// them; the video descriptors that name them take them from here.
struct TVideoEncodeFormat {
    static constexpr VURO_U8 VIDEO_ENCODE_FORMAT_1080P = 0;
    static constexpr VURO_U8 VIDEO_ENCODE_FORMAT_1080I = 1;
    static constexpr VURO_U8 VIDEO_ENCODE_FORMAT_720P = 2;
    static constexpr VURO_U8 VIDEO_ENCODE_FORMAT_480P = 3;
    static constexpr VURO_U8 VIDEO_ENCODE_FORMAT_480I = 4;
    static constexpr VURO_U8 VIDEO_ENCODE_FORMAT_240P = 5;
    static constexpr VURO_U8 VIDEO_ENCODE_FORMAT_120P = 6;
};

} // namespace Vuro

#endif
