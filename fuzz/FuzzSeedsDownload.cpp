#include "FuzzSeeds.h"

#include "../tests/sdtt/DownloadBytes.h"

namespace VuroFuzz {

using namespace VuroTest;

std::vector<Seed> downloadSeeds()
{
    // A receiver update: compatibility entry with a sub-descriptor, two
    // modules, the portal update as private data, a text; two periods.
    DownloadContentFields f;
    f.flags = 0xB8;
    const Bytes subDescriptor = subItem(0x01, {0x42, 0x43});
    const Bytes entry = compatibilityItem(0x01, 0x00ABCD, {0x01, 0x04}, {0x02, 0x01}, subDescriptor, 1);
    const Bytes compat = compatibility(1, entry);
    const Bytes modules = concat({module(1, 0x00100000, {'m'}), module(2, 0x10, {})});
    const Bytes dcd = downloadContentDescriptor(f, compat, modules, 2, portalUpdate(), textPart("por", "Atualizacao"));
    const Bytes periods =
        concat({schedule(0xE0A8, 0x12, 0x34, 0x56, 0x013000), schedule(0xE0A9, 0x02, 0x00, 0x00, 0x003000)});
    const Bytes content = downloadContent(0x010, 0x020, 2, 1, 0, periods, concat({descriptor(0xFE, {1}), dcd}));
    return {
        {"TSDTTTable", sdttSection(0x12, 0x34, 1, 2, concat({content, downloadContent(1, 2, 0, 0, 0, {}, {})}))},
        {"TSDTTTable", sdttSection(0x12, 0x34, 2, 0, {})},
        {"TDownloadContent", content},
        {"TScheduleInfo", schedule(0xE0A8, 0x12, 0x34, 0x56, 0x013000)},
        {"TDownloadContentDescriptor", dcd},
        {"TDownloadContentDescriptor/within", concat({dcd, {0xFF, 0xFF}})},
        {"TDownloadContentDescriptorItem", module(1, 0x00100000, {'m', 'i'})},
        {"TCompatibilityDescriptor", compat},
        {"TCompatibilityDescriptorItem", entry},
        {"TCompatibilityDescriptorSubItem", subDescriptor},
        {"TAppPortalUpdate", portalUpdate()},
    };
}

} // namespace VuroFuzz
