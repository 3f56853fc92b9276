#include "FuzzSeeds.h"

#include "../tests/eit/EitBytes.h"

namespace VuroFuzz {

using namespace VuroTest;

std::vector<Seed> eventSeeds()
{
    const Bytes name = shortEvent();
    const Bytes content = contentDescriptor();
    const Bytes rating = ratingDescriptor();
    const Bytes audio = audioDescriptor();
    const Bytes copy = copyControlDescriptor();
    const Bytes skipped = concat({descriptor(0x42, {0xFF}), descriptor(0x4E, {0x00, 'p', 'o', 'r', 0, 0}),
                                  descriptor(0xDE, {0xF7}), descriptor(0xD6, {0x00})});
    const Bytes news = eventEntry(0x0100, concat({name, componentDescriptor(), content, rating, audio, copy}));
    const Bytes film = eventEntry(0x0101, concat({name, skipped, content}), 0x20);
    return {
        {"TEITTable", eitSection(news, 0x4E, 0)},
        {"TEITTable", eitSection(film)},
        {"TEITTable", eitSection(concat({news, film, eventEntry(0x0102, {}, 0x00)}), 0x50, 0)},
        {"TEventItemDescriptor", concat({news, {0xDE, 0xAD, 0xBE, 0xEF}})},
        {"TEventItemDescriptor", film},
        {"EpgItem", rating},
        {"EpgItem", audio},
        {"EpgItem", copy},
    };
}

} // namespace VuroFuzz
