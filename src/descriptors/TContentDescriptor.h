#ifndef VURO_TCONTENT_DESCRIPTOR_H
#define VURO_TCONTENT_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// content_descriptor (0x54): entries of content_nibble_level_1 (4),
/// content_nibble_level_2 (4) and user_byte (8); only the first entry is kept.
class TContentDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x54;
    /// Checked as dataLength >= 4, not against descriptor_length.
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 2;

    TContentDescriptor(U8* data, U32 length);
    virtual ~TContentDescriptor();

    /// No header check (neither tag nor descriptor_length is examined): only
    /// dataLength >= 4 is required. *parsedLength is not written (callers step
    /// over descriptor_length + 2).
    static TContentDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TContentDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                     const U8* limit);

    U8 getContentNibbleLevel1() const { return contentNibbleLevel1; }
    U8 getContentNibbleLevel2() const { return contentNibbleLevel2; }
    U8 getUserByte() const { return userByte; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    // Named without the usual prefix, as the interface has always had them.
    VURO_U8 contentNibbleLevel1;
    VURO_U8 contentNibbleLevel2;
    VURO_U8 userByte;
};

} // namespace Vuro

#endif
