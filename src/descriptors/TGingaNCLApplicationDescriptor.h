#ifndef VURO_TGINGA_NCL_APPLICATION_DESCRIPTOR_H
#define VURO_TGINGA_NCL_APPLICATION_DESCRIPTOR_H

#include "TGingaApplicationDescriptor.h"

namespace Vuro {

/// The Ginga-NCL application descriptor (0x06): the application's parameters.
class TGingaNCLApplicationDescriptor : public TGingaApplicationDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x06;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 0;

    TGingaNCLApplicationDescriptor(U8* data, U32 length);
    /// A copy of the parameters, without raw bytes.
    explicit TGingaNCLApplicationDescriptor(TGingaNCLApplicationDescriptor* source);
    virtual ~TGingaNCLApplicationDescriptor();

    /// *parsedLength receives the body bytes read.
    static TGingaNCLApplicationDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TGingaNCLApplicationDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                                 const U8* limit);
};

} // namespace Vuro

#endif
