// Where the descriptor loops of a section lie, read from its bytes by the
// broadcast syntax of its table_id, independently of the library: so that
// the dump can list what the library's objects leave out.
#ifndef VURO_TOOLS_DESCRIPTOR_LOOPS_H
#define VURO_TOOLS_DESCRIPTOR_LOOPS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace VuroTools {

struct DescriptorLoop {
    std::string where;   // "program", "stream 0x0111", "service 0x5C20", ...
    std::size_t begin;   // offset of the first descriptor in the section
    std::size_t end;     // offset past the last byte of the loop
};

// The loops of a complete section (from its table_id) of the tables whose
// layout is known: CAT, PMT, NIT, SDT, BAT, EIT, TOT, AIT, SIT and BIT.
// Every loop lies inside the section (before its CRC_32); a length that
// runs past it ends the list there.
std::vector<DescriptorLoop> descriptorLoops(const std::uint8_t* section, std::size_t length);

// One descriptor of a loop: its offset and total size (tag and length
// bytes included), clipped to the loop.
struct RawDescriptor {
    std::size_t offset;
    std::size_t size;
};
std::vector<RawDescriptor> descriptorsIn(const std::uint8_t* section, const DescriptorLoop& loop);

// The original_network_id (or network_id) a section names, or -1: NIT actual
// (network_id), SDT, EIT and BIT.
int networkOf(const std::uint8_t* section, std::size_t length);

// Networks whose times (TOT, EIT start times) are Japan Standard Time: the
// ARIB satellite networks (original_network_id 0x0001 to 0x000B) and the
// Japanese terrestrial ones (0x7880 to 0x7FE8).
bool isJapaneseNetwork(int originalNetworkId);

} // namespace VuroTools

#endif
