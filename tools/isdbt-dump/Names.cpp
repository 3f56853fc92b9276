#include "Names.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

namespace VuroTools {

const char* errorCodeName(std::uint16_t code)
{
    switch (code) {
    case 0x0000: return "ERROR_OK";
    case 0x0A00: return "ERROR_INCOMPATIBLE_TABLE_TYPE";
    case 0x0A01: return "ERROR_TABLE_NOT_UPDATED";
    case 0x0A02: return "ERROR_INVALID_DATA";
    case 0x0A03: return "ERROR_INVALID_DATA_LENGTH";
    case 0x0A04: return "ERROR_INVALID_TABLE_ID";
    case 0x0A05: return "ERROR_INVALID_SECTION_LEN_TOO_BIG";
    case 0x0A06: return "ERROR_INVALID_CRC32";
    case 0x0A07: return "ERROR_INVALID_DESCRIPTOR_TAG";
    case 0x0A08: return "ERROR_INVALID_DESCRIPTOR_LENGTH";
    case 0x0A09: return "ERROR_INVALID_STRING";
    case 0x0A0A: return "ERROR_INVALID_ITEM";
    default: return nullptr;
    }
}

const char* tableIdName(std::uint8_t id)
{
    if (id >= 0x50 && id <= 0x5F)
        return "EIT schedule actual";
    if (id >= 0x60 && id <= 0x6F)
        return "EIT schedule other";
    switch (id) {
    case 0x00: return "PAT";
    case 0x01: return "CAT";
    case 0x02: return "PMT";
    case 0x03: return "TSDT";
    case 0x3A: return "DSM-CC multiprotocol";
    case 0x3B: return "DSM-CC DSI/DII";
    case 0x3C: return "DSM-CC DDB";
    case 0x3D: return "DSM-CC stream descriptors";
    case 0x3E: return "DSM-CC private";
    case 0x40: return "NIT actual";
    case 0x41: return "NIT other";
    case 0x42: return "SDT actual";
    case 0x46: return "SDT other";
    case 0x4A: return "BAT";
    case 0x4E: return "EIT p/f actual";
    case 0x4F: return "EIT p/f other";
    case 0x70: return "TDT";
    case 0x71: return "RST";
    case 0x72: return "ST";
    case 0x73: return "TOT";
    case 0x74: return "AIT";
    case 0x7E: return "DIT";
    case 0x7F: return "SIT";
    case 0xC0: return "DCT";
    case 0xC1: return "DLT";
    case 0xC2: return "PCAT";
    case 0xC3: return "SDTT";
    case 0xC4: return "BIT";
    case 0xC5: return "NBIT";
    case 0xC6: return "NBIT reference";
    case 0xC7: return "LDT";
    case 0xC8: return "CDT";
    case 0xFF: return "stuffing";
    default: return nullptr;
    }
}

const char* streamTypeName(std::uint8_t type)
{
    switch (type) {
    case 0x01: return "MPEG-1 video";
    case 0x02: return "MPEG-2 video";
    case 0x03: return "MPEG-1 audio";
    case 0x04: return "MPEG-2 audio";
    case 0x05: return "private sections";
    case 0x06: return "PES private data";
    case 0x07: return "MHEG";
    case 0x08: return "DSM-CC";
    case 0x09: return "ITU-T H.222.1";
    case 0x0A: return "DSM-CC multiprotocol encapsulation";
    case 0x0B: return "DSM-CC U-N messages";
    case 0x0C: return "DSM-CC stream descriptors";
    case 0x0D: return "DSM-CC sections";
    case 0x0E: return "auxiliary";
    case 0x0F: return "AAC audio (ADTS)";
    case 0x10: return "MPEG-4 visual";
    case 0x11: return "AAC audio (LATM)";
    case 0x12: return "SL/FlexMux in PES";
    case 0x13: return "SL/FlexMux in sections";
    case 0x14: return "synchronized download";
    case 0x15: return "metadata in PES";
    case 0x16: return "metadata in sections";
    case 0x17: return "metadata in data carousel";
    case 0x18: return "metadata in object carousel";
    case 0x19: return "metadata in synchronized download";
    case 0x1A: return "IPMP stream";
    case 0x1B: return "H.264/AVC video";
    case 0x24: return "H.265/HEVC video";
    case 0x7E: return "data piping";
    case 0x7F: return "IPMP stream";
    case 0x81: return "AC-3 audio";
    default: return nullptr;
    }
}

const char* serviceTypeName(std::uint8_t type)
{
    switch (type) {
    case 0x01: return "digital television";
    case 0x02: return "digital audio";
    case 0x03: return "teletext";
    case 0x04: return "NVOD reference";
    case 0x05: return "NVOD time-shifted";
    case 0x06: return "mosaic";
    case 0x0A: return "advanced codec digital radio";
    case 0x0B: return "advanced codec mosaic";
    case 0x0C: return "data broadcast";
    case 0x0D: return "common interface";
    case 0x0E: return "RCS map";
    case 0x0F: return "RCS FLS";
    case 0x10: return "MHP";
    case 0x11: return "MPEG-2 HD digital television";
    case 0x16: return "advanced codec SD digital television";
    case 0x17: return "advanced codec SD NVOD time-shifted";
    case 0x18: return "advanced codec SD NVOD reference";
    case 0x19: return "advanced codec HD digital television";
    case 0x1A: return "advanced codec HD NVOD time-shifted";
    case 0x1B: return "advanced codec HD NVOD reference";
    case 0xA1: return "special video";
    case 0xA2: return "special audio";
    case 0xA3: return "special data";
    case 0xA4: return "engineering";
    case 0xA5: return "promotion video";
    case 0xA6: return "promotion audio";
    case 0xA7: return "promotion data";
    case 0xA8: return "pre-accumulated data";
    case 0xA9: return "accumulation-only data";
    case 0xAA: return "bookmark list data";
    case 0xAB: return "server-type simultaneous";
    case 0xAC: return "independent file";
    case 0xC0: return "data (one-seg)";
    default: return nullptr;
    }
}

const char* runningStatusName(std::uint8_t status)
{
    switch (status) {
    case 0: return "undefined";
    case 1: return "not running";
    case 2: return "starts in a few seconds";
    case 3: return "pausing";
    case 4: return "running";
    default: return nullptr;
    }
}

const char* applicationTypeName(std::uint16_t type)
{
    switch (type) {
    case 0x0001: return "Ginga-J";
    case 0x0009: return "Ginga-NCL";
    default: return nullptr;
    }
}

const char* applicationControlCodeName(std::uint8_t code)
{
    switch (code) {
    case 1: return "AUTOSTART";
    case 2: return "PRESENT";
    case 3: return "DESTROY";
    case 4: return "KILL";
    case 6: return "REMOTE";
    case 7: return "UNBOUND";
    default: return nullptr;
    }
}

const char* applicationDescriptorTagName(std::uint8_t tag)
{
    switch (tag) {
    case 0x00: return "application";
    case 0x01: return "application name";
    case 0x02: return "transport protocol";
    case 0x03: return "Ginga-J application";
    case 0x04: return "Ginga-J application location";
    case 0x05: return "external application authorisation";
    case 0x06: return "Ginga-NCL application";
    case 0x07: return "Ginga-NCL application location";
    case 0x0B: return "application icons";
    case 0x0C: return "prefetch";
    case 0x0D: return "DII location";
    case 0x11: return "IP signalling";
    case 0x42: return "stuffing";
    default: return nullptr;
    }
}

const char* dsmccDescriptorTagName(std::uint8_t tag)
{
    switch (tag) {
    case 0x01: return "NPT reference";
    case 0x02: return "NPT endpoint";
    case 0x03: return "stream mode";
    case 0x04: return "stream event";
    default: return descriptorTagName(tag);
    }
}

const char* descriptorTagName(std::uint8_t tag)
{
    switch (tag) {
    case 0x02: return "video stream";
    case 0x03: return "audio stream";
    case 0x05: return "registration";
    case 0x06: return "data stream alignment";
    case 0x09: return "conditional access";
    case 0x0A: return "ISO 639 language";
    case 0x0D: return "copyright";
    case 0x0E: return "maximum bitrate";
    case 0x10: return "smoothing buffer";
    case 0x11: return "STD";
    case 0x13: return "carousel identifier";
    case 0x14: return "association tag";
    case 0x15: return "deferred association tags";
    case 0x1C: return "MPEG-4 audio";
    case 0x28: return "AVC video";
    case 0x2A: return "AVC timing and HRD";
    case 0x40: return "network name";
    case 0x41: return "service list";
    case 0x42: return "stuffing";
    case 0x43: return "satellite delivery system";
    case 0x44: return "cable delivery system";
    case 0x47: return "bouquet name";
    case 0x48: return "service";
    case 0x49: return "country availability";
    case 0x4A: return "linkage";
    case 0x4B: return "NVOD reference";
    case 0x4C: return "time shifted service";
    case 0x4D: return "short event";
    case 0x4E: return "extended event";
    case 0x4F: return "time shifted event";
    case 0x50: return "component";
    case 0x51: return "mosaic";
    case 0x52: return "stream identifier";
    case 0x53: return "CA identifier";
    case 0x54: return "content";
    case 0x55: return "parental rating";
    case 0x58: return "local time offset";
    case 0x63: return "partial transport stream";
    case 0x7C: return "AAC";
    case 0xC0: return "hierarchical transmission";
    case 0xC1: return "digital copy control";
    case 0xC2: return "network identification";
    case 0xC3: return "partial transport stream time";
    case 0xC4: return "audio component";
    case 0xC5: return "hyperlink";
    case 0xC6: return "target region";
    case 0xC7: return "data content";
    case 0xC8: return "video decode control";
    case 0xC9: return "download content";
    case 0xCB: return "CA contract info";
    case 0xCC: return "CA service";
    case 0xCD: return "TS information";
    case 0xCE: return "extended broadcaster";
    case 0xCF: return "logo transmission";
    case 0xD5: return "series";
    case 0xD6: return "event group";
    case 0xD7: return "SI parameter";
    case 0xD8: return "broadcaster name";
    case 0xD9: return "component group";
    case 0xDA: return "SI prime TS";
    case 0xDB: return "board information";
    case 0xDC: return "LDT linkage";
    case 0xDD: return "connected transmission";
    case 0xDE: return "content availability";
    case 0xE0: return "service group";
    case 0xF6: return "access control";
    case 0xF7: return "carousel compatible composite";
    case 0xF8: return "conditional playback";
    case 0xFA: return "terrestrial delivery system";
    case 0xFB: return "partial reception";
    case 0xFC: return "emergency information";
    case 0xFD: return "data component";
    case 0xFE: return "system management";
    default: return nullptr;
    }
}

std::vector<std::uint8_t> tableIdsFor(const std::string& argument)
{
    std::string name = argument;
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::toupper(c); });
    std::vector<std::uint8_t> ids;
    auto range = [&ids](unsigned first, unsigned last) {
        for (unsigned id = first; id <= last; ++id)
            ids.push_back(static_cast<std::uint8_t>(id));
    };
    if (name == "PAT") range(0x00, 0x00);
    else if (name == "CAT") range(0x01, 0x01);
    else if (name == "PMT") range(0x02, 0x02);
    else if (name == "NIT") range(0x40, 0x41);
    else if (name == "SDT") { range(0x42, 0x42); range(0x46, 0x46); }
    else if (name == "BAT") range(0x4A, 0x4A);
    else if (name == "EIT") range(0x4E, 0x6F);
    else if (name == "TDT") range(0x70, 0x70);
    else if (name == "TOT") range(0x73, 0x73);
    else if (name == "AIT") range(0x74, 0x74);
    else if (name == "SDTT") range(0xC3, 0xC3);
    else if (name == "BIT") range(0xC4, 0xC4);
    else if (name == "CDT") range(0xC8, 0xC8);
    else if (name == "DSMCC" || name == "DSM-CC") range(0x3B, 0x3D);
    else if (!name.empty()) {
        char* end = nullptr;
        const unsigned long value = std::strtoul(argument.c_str(), &end, 0);
        if (end && *end == '\0' && value <= 0xFF)
            ids.push_back(static_cast<std::uint8_t>(value));
    }
    return ids;
}

} // namespace VuroTools
