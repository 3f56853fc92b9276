#ifndef VURO_TISO639_LANGUAGE_DESCRIPTOR_H
#define VURO_TISO639_LANGUAGE_DESCRIPTOR_H

#include <string>

#include "TISDBTDescriptor.h"

namespace Vuro {

/// ISO_639_language_descriptor (0x0A): a loop of ISO_639_language_code (24)
/// audio_type (8); only the first language code is kept.
class TISO639LanguageDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x0A;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 2;

    TISO639LanguageDescriptor(U8* data, U32 length);
    virtual ~TISO639LanguageDescriptor();

    /// *parsedLength is never written.
    static TISO639LanguageDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TISO639LanguageDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                            const U8* limit);

    /// The three code characters as carried ("por", "eng", ...).
    const std::string& getLanguageCode() const { return m_sLanguageCode; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    std::string m_sLanguageCode;
};

} // namespace Vuro

#endif
