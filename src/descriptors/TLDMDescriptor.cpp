#include "TLDMDescriptor.h"

#include <cstdint>

#include "../utils/ParserUtils.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kGlossesOffset = 7; // header, message_id, message_length, glosses_length
}

TLDMDescriptor::TLDMDescriptor(U8* data, U32 length) : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), message_id(0)
{
}

TLDMDescriptor::~TLDMDescriptor() = default;

TLDMDescriptor* TLDMDescriptor::parse(U8* sectionData, U32 dataLength, U32*, U16*)
{
    // Nothing in the message bounds the walk but its own glosses_length, so
    // it stops (refused, silently) where the data ends.
    if (!sectionData || dataLength < kGlossesOffset)
        return nullptr;
    TLDMDescriptor* message = new TLDMDescriptor(sectionData, dataLength);
    const U8* limit = sectionData + dataLength;
    message->message_id = sectionData[2]; // message_length (bytes 3-4) is not kept
    U16 left = readU16(sectionData + 5);
    U8* position = sectionData + kGlossesOffset;
    // The loop runs while the glosses_length count, less the text bytes read
    // (16-bit, taken as signed), exceeds the number of glosses read: together
    // that is "while the bytes consumed, length bytes included, are fewer than
    // glosses_length". The Libras players size their buffers on this walk, so
    // the bookkeeping is kept as it is.
    for (S32 glosses = 0; static_cast<std::int16_t>(left) > glosses; ++glosses) {
        if (!fits(position, limit, 1)) {
            delete message;
            return nullptr;
        }
        const U8 glossLength = *position++;
        if (glossLength == 0)
            continue;
        std::string text;
        if (!fits(position, limit, glossLength) ||
            ParserUtils::parseStr(position, text, glossLength, glossLength) != glossLength) {
            delete message;
            return nullptr;
        }
        message->glosas.push_back(text);
        left = static_cast<U16>(left - glossLength);
        position += glossLength;
    }
    return message;
}

} // namespace Vuro
