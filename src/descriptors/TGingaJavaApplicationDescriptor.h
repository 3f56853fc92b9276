#ifndef VURO_TGINGA_JAVA_APPLICATION_DESCRIPTOR_H
#define VURO_TGINGA_JAVA_APPLICATION_DESCRIPTOR_H

#include "TGingaApplicationDescriptor.h"

namespace Vuro {

/// The Ginga-J application descriptor (0x03): the application's parameters.
class TGingaJavaApplicationDescriptor : public TGingaApplicationDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x03;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 0;

    TGingaJavaApplicationDescriptor(U8* data, U32 length);
    /// A copy of the parameters, without raw bytes.
    explicit TGingaJavaApplicationDescriptor(TGingaJavaApplicationDescriptor* source);
    virtual ~TGingaJavaApplicationDescriptor();

    /// *parsedLength receives the body bytes read.
    static TGingaJavaApplicationDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TGingaJavaApplicationDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                                 const U8* limit);
};

} // namespace Vuro

#endif
