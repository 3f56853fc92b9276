#ifndef VURO_TLDM_DESCRIPTOR_H
#define VURO_TLDM_DESCRIPTOR_H

#include <list>
#include <string>

#include "TISDBTDescriptor.h"

namespace Vuro {

/// Libras data message (sign-language presentation, tag 0x7C): message_id (8)
/// message_length (16) glosses_length (16), then glosses, each a length byte
/// and that many text bytes. Callers decode it directly; no table dispatches
/// to it.
///
/// A shorter pattern than the other descriptors: no header check, no error
/// code, no parsed length and no log line.
class TLDMDescriptor : public TISDBTDescriptor {
public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x7C;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 2;

    TLDMDescriptor(U8* data, U32 length);
    virtual ~TLDMDescriptor();

    /// Null when a gloss, or the 7 bytes up to the first one, would pass the
    /// end of the data; parsedLength and errorCode are never written.
    static TLDMDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);

    U8 getMessageId() const { return message_id; }
    /// A copy of the glosses, in data order.
    std::list<std::string> getGlosas() const { return glosas; }

private:
    VURO_U8 message_id;
    std::list<std::string> glosas;
};

} // namespace Vuro

#endif
