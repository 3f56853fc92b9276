#ifndef VURO_TSTREAM_IDENTIFIER_DESCRIPTOR_H
#define VURO_TSTREAM_IDENTIFIER_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// stream_identifier_descriptor (0x52): component_tag (8) of an elementary
/// stream.
class TStreamIdentifierDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x52;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 1;

    TStreamIdentifierDescriptor(U8* data, U32 length);
    virtual ~TStreamIdentifierDescriptor();

    /// *parsedLength receives 1.
    static TStreamIdentifierDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TStreamIdentifierDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                              const U8* limit);

    U8 getComponentTag() const { return m_iComponentTag; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U8 m_iComponentTag;
};

} // namespace Vuro

#endif
