#ifndef VURO_TCONDITIONAL_PLAYBACK_DESCRIPTOR_H
#define VURO_TCONDITIONAL_PLAYBACK_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// conditional_playback_descriptor (0xF8): CA_system_id (16) reserved (3)
/// CA_PID (13), then private data to the end of the descriptor (an owned copy).
class TConditionalPlaybackDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0xF8;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 4;

    TConditionalPlaybackDescriptor(U8* data, U32 length);
    virtual ~TConditionalPlaybackDescriptor();

    /// *parsedLength receives dataLength - 2.
    static TConditionalPlaybackDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                 U16* errorCode);
    static TConditionalPlaybackDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                 U16* errorCode, const U8* limit);

    U16 getCASystemID() const { return m_iCASystemID; }
    U16 getCAPID() const { return m_iCAPID; }
    /// Size kept in 8 bits; the data is null when the descriptor carries none.
    U8 getPrivateDataSize() const { return m_iPrivateDataSize; }
    U8* getPrivateData() const { return m_pPrivateData; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U16 m_iCASystemID;
    VURO_U16 m_iCAPID;
    VURO_U8 m_iPrivateDataSize;
    VURO_U8* m_pPrivateData;
};

} // namespace Vuro

#endif
