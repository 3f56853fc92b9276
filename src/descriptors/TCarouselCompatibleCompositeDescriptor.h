#ifndef VURO_TCAROUSEL_COMPATIBLE_COMPOSITE_DESCRIPTOR_H
#define VURO_TCAROUSEL_COMPATIBLE_COMPOSITE_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// carousel_compatible_composite_descriptor (0xF7): its sub-descriptors are
/// not decoded; the object only marks the descriptor's presence.
class TCarouselCompatibleCompositeDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0xF7;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 4;

    TCarouselCompatibleCompositeDescriptor(U8* data, U32 length);
    virtual ~TCarouselCompatibleCompositeDescriptor();

    /// *parsedLength receives dataLength.
    static TCarouselCompatibleCompositeDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                         U16* errorCode);
    static TCarouselCompatibleCompositeDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                         U16* errorCode, const U8* limit);

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);
};

} // namespace Vuro

#endif
