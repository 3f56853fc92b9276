#ifndef VURO_TCOMPONENT_DESCRIPTOR_H
#define VURO_TCOMPONENT_DESCRIPTOR_H

#include <string>

#include "TISDBTDescriptor.h"

namespace Vuro {

/// component_descriptor (0x50): reserved (4), stream_content (4),
/// component_type (8), component_tag (8), ISO_639_language_code (24), then
/// text to the end of the descriptor.
class TComponentDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x50;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 6;

    TComponentDescriptor(U8* data, U32 length);
    virtual ~TComponentDescriptor();

    /// *parsedLength receives the text's byte count + 3.
    static TComponentDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TComponentDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                       const U8* limit);

    U8 getStreamContent() const { return m_iStreamContent; }
    U8 getComponentType() const { return m_iComponentType; }
    /// stream_content << 8 | component_type.
    U16 getStreamContentComponentType() const
    {
        return static_cast<U16>((m_iStreamContent << 8) | m_iComponentType);
    }
    U8 getComponentTag() const { return m_iComponentTag; }
    std::string getLanguageCode() const { return m_sLanguageCode; }
    std::string getText() const { return m_sText; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U8 m_iStreamContent;
    VURO_U8 m_iComponentType;
    VURO_U8 m_iComponentTag;
    std::string m_sLanguageCode;
    std::string m_sText;
};

} // namespace Vuro

#endif
