#ifndef VURO_TIP_SIGNALING_DESCRIPTOR_H
#define VURO_TIP_SIGNALING_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// IP_signalling_descriptor (0x11): platform_id (24).
class TIPSignalingDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x11;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 3;

    TIPSignalingDescriptor(U8* data, U32 length);
    explicit TIPSignalingDescriptor(TIPSignalingDescriptor* source);
    virtual ~TIPSignalingDescriptor();

    /// *parsedLength receives 3.
    static TIPSignalingDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TIPSignalingDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                         const U8* limit);

    U32 getPlatformID() const { return m_iPlatformID; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U32 m_iPlatformID;
};

} // namespace Vuro

#endif
