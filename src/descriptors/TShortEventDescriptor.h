#ifndef VURO_TSHORT_EVENT_DESCRIPTOR_H
#define VURO_TSHORT_EVENT_DESCRIPTOR_H

#include <string>

#include "TISDBTDescriptor.h"

namespace Vuro {

/// short_event_descriptor (0x4D): ISO_639_language_code (24), event_name_length
/// (8) and name, text_length (8) and text, all as raw bytes.
class TShortEventDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x4D;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 2;

    TShortEventDescriptor(U8* data, U32 length);
    virtual ~TShortEventDescriptor();

    /// dataLength is what remains of the enclosing descriptor loop, not
    /// descriptor_length + 2: the strings are bounded by that remainder. Once
    /// the header check has passed, *parsedLength (when given) receives
    /// descriptor_length + 2, whether the body then parses or not, so that the
    /// caller can step over the descriptor.
    static TShortEventDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TShortEventDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                        const U8* limit);

    std::string getLanguageCode() const { return m_sLanguageCode; }
    std::string getEventName() const { return m_sEventName; }
    std::string getEventDescription() const { return m_sEventDescription; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    std::string m_sLanguageCode;
    std::string m_sEventName;
    std::string m_sEventDescription;
};

} // namespace Vuro

#endif
