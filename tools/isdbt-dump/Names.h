// Names that broadcast syntax gives to codes, for the dump's readers.
#ifndef VURO_TOOLS_NAMES_H
#define VURO_TOOLS_NAMES_H

#include <cstdint>
#include <string>
#include <vector>

namespace VuroTools {

// "ERROR_INVALID_ITEM" for the library's error codes, null for others.
const char* errorCodeName(std::uint16_t code);
// Short name of a table_id ("PAT", "EIT schedule actual", ...), null if unassigned.
const char* tableIdName(std::uint8_t tableId);
// ISO/IEC 13818-1 and ARIB stream_type assignments.
const char* streamTypeName(std::uint8_t streamType);
// ARIB / ABNT service_type assignments and the DVB ones below 0x20.
const char* serviceTypeName(std::uint8_t serviceType);
// running_status of the SDT and EIT.
const char* runningStatusName(std::uint8_t runningStatus);
// descriptor_tag assignments of ISO/IEC 13818-1, ARIB and ABNT.
const char* descriptorTagName(std::uint8_t tag);
// The same, with tags 0x01-0x04 as DSM-CC stream descriptor sections use them.
const char* dsmccDescriptorTagName(std::uint8_t tag);
// Ginga application types (the AIT's table_id_extension), application
// control codes, and the descriptor tags of the AIT's own tag space.
const char* applicationTypeName(std::uint16_t type);
const char* applicationControlCodeName(std::uint8_t code);
const char* applicationDescriptorTagName(std::uint8_t tag);

// The table_ids a --table argument selects: a number (decimal or 0x hex) or
// a table name (PAT, CAT, PMT, NIT, SDT, BAT, EIT, TDT, TOT, AIT, SDTT, BIT,
// CDT, DSMCC, case-insensitive). Empty when the argument means nothing.
std::vector<std::uint8_t> tableIdsFor(const std::string& argument);

} // namespace VuroTools

#endif
