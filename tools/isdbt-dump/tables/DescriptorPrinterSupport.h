// What the per-family descriptor printers share: how a printer registers
// for its descriptor class, and the small field helpers they all use.
#ifndef VURO_TOOLS_DESCRIPTOR_PRINTER_SUPPORT_H
#define VURO_TOOLS_DESCRIPTOR_PRINTER_SUPPORT_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include <VuroISDBT.h>

#include "../TreeOut.h"
#include "DescriptorPrinter.h"

namespace VuroTools {

// Prints the fields of a descriptor when it is of the printer's class;
// false leaves it to the next printer for the same tag, or to the raw dump.
using DescriptorFieldPrinter = bool (*)(const Vuro::TISDBTDescriptor&, TreeOut&);

struct DescriptorPrinterEntry {
    Vuro::U8 tag;
    DescriptorFieldPrinter print;
};

template <class D, void (*Print)(const D&, TreeOut&)>
bool printFieldsAs(const Vuro::TISDBTDescriptor& descriptor, TreeOut& out)
{
    const D* typed = dynamic_cast<const D*>(&descriptor);
    if (!typed)
        return false;
    Print(*typed, out);
    return true;
}

// The entry of a printer for descriptor class D, under D's tag.
template <class D, void (*Print)(const D&, TreeOut&)>
constexpr DescriptorPrinterEntry printerFor()
{
    return {D::DESCRIPTOR_TAG, &printFieldsAs<D, Print>};
}

// The printers of each family, in their own units.
std::vector<DescriptorPrinterEntry> networkDescriptorPrinters();
std::vector<DescriptorPrinterEntry> serviceDescriptorPrinters();
std::vector<DescriptorPrinterEntry> streamDescriptorPrinters();
std::vector<DescriptorPrinterEntry> downloadDescriptorPrinters();
std::vector<DescriptorPrinterEntry> dsmccDescriptorPrinters();

// The name at a code's position in a table of names (null past its end or
// where the table has a gap).
template <std::size_t N>
const char* nameIn(const char* const (&names)[N], unsigned code)
{
    return code < N ? names[code] : nullptr;
}

// A list of 16-bit identifiers (service_ids, CA_system_ids, ...).
void printIds(const char* key, const Vuro::U16* ids, unsigned count, TreeOut& out);

// Bytes a descriptor copied for itself: null data means none, whatever the size says.
inline void printOwnedBytes(const char* key, const Vuro::U8* data, unsigned size, TreeOut& out)
{
    out.bytes(key, data, data ? size : 0);
}

// The entries of a descriptor kept by position: each present entry
// becomes an item titled "<what> <index>" with the fields print writes.
template <class Get, class Print>
void printEntries(const char* key, const char* what, unsigned count, Get get, Print print, TreeOut& out)
{
    out.beginList(key);
    for (unsigned i = 0; i < count; ++i) {
        const auto* entry = get(i);
        if (!entry)
            continue;
        out.beginItem(std::string(what) + " " + std::to_string(i));
        print(*entry, out);
        out.end();
    }
    out.end();
}

// The body of a descriptor as broadcast (after descriptor_tag and
// descriptor_length): what the printers decode themselves where the library
// keeps another value on purpose. Bounded by descriptor_length and by the
// section it lies in (or, when that is not known, the length the object
// reports).
struct WireBody {
    const Vuro::U8* data = nullptr;
    unsigned size = 0;
    bool has(unsigned offset, unsigned count = 1) const { return offset + count <= size; }
    unsigned u8(unsigned offset) const { return data[offset]; }
    unsigned u16(unsigned offset) const { return static_cast<unsigned>(data[offset] << 8 | data[offset + 1]); }
    std::uint32_t u32(unsigned offset) const { return std::uint32_t(u16(offset)) << 16 | u16(offset + 2); }
};
inline WireBody wireBody(const Vuro::TISDBTDescriptor& descriptor)
{
    WireBody body;
    const Vuro::U8* data = descriptor.getData();
    const Vuro::U8* end = data ? PrintedDescriptors::spanEnd(data) : nullptr;
    const std::size_t available = end ? static_cast<std::size_t>(end - data) : descriptor.getDataLength();
    if (!data || available < 2)
        return body;
    body.data = data + 2;
    body.size = data[1] < available - 2 ? data[1] : static_cast<unsigned>(available - 2);
    return body;
}

// transport_stream_id, original_network_id and service_id of an entry
// that points at a service elsewhere.
template <class Entry>
void printServiceLocation(const Entry& entry, TreeOut& out)
{
    out.hex("transport_stream_id", entry.getTransportStreamID(), 4);
    out.hex("original_network_id", entry.getOriginalNetworkID(), 4);
    out.hex("service_id", entry.getServiceID(), 4);
}

} // namespace VuroTools

#endif
