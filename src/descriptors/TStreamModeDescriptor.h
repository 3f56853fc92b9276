#ifndef VURO_TSTREAM_MODE_DESCRIPTOR_H
#define VURO_TSTREAM_MODE_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// stream_mode_descriptor (tag 3, DSM-CC stream descriptor): streamMode (8)
/// reserved (8).
class TStreamModeDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x03;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 2;

    /// streamMode values.
    static constexpr VURO_U8 STREAM_MODE_OPEN = 0;
    static constexpr VURO_U8 STREAM_MODE_PAUSE = 1;
    static constexpr VURO_U8 STREAM_MODE_TRANSPORT = 2;
    static constexpr VURO_U8 STREAM_MODE_TRANSPORT_PAUSE = 3;
    static constexpr VURO_U8 STREAM_MODE_SEARCH_TRANSPORT = 4;
    static constexpr VURO_U8 STREAM_MODE_SEARCH_TRANSPORT_PAUSE = 5;
    static constexpr VURO_U8 STREAM_MODE_PAUSE_SEARCH_TRANSPORT = 6;
    static constexpr VURO_U8 STREAM_MODE_END_OF_STREAM = 7;
    static constexpr VURO_U8 STREAM_MODE_PRE_SEARCH_TRANSPORT = 8;
    static constexpr VURO_U8 STREAM_MODE_PRE_SEARCH_TRANSPORT_PAUSE = 9;

    TStreamModeDescriptor(U8* data, U32 length);
    virtual ~TStreamModeDescriptor();

    /// parsedLength is not written.
    static TStreamModeDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TStreamModeDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                        const U8* limit);

    U8 getStreamMode() const { return m_iStreamMode; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U8 m_iStreamMode;
};

} // namespace Vuro

#endif
