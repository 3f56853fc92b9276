// Descriptors as the library decodes them, field by field, shared by every
// table printer. The printers live in one unit per descriptor family
// (*DescriptorPrinters.cpp) and register by tag; a descriptor class without
// a printer is shown as its tag and raw bytes.
#ifndef VURO_TOOLS_DESCRIPTOR_PRINTER_H
#define VURO_TOOLS_DESCRIPTOR_PRINTER_H

#include <cstdio>
#include <list>
#include <vector>

#include <VuroISDBT.h>

#include "../Names.h"
#include "../TreeOut.h"

namespace VuroTools {

// Names a descriptor_tag in the tag space of the table that carries it.
using TagNamer = const char* (*)(std::uint8_t tag);
// Prints a descriptor's fields; false when it has no field printer.
using FieldPrinter = bool (*)(const Vuro::TISDBTDescriptor& descriptor, TreeOut& out);

// A descriptor titled by its tag and name, with its fields (or its raw
// bytes when no printer knows it). The catalogue's printers by default;
// tables with a tag space of their own (the AIT) pass theirs.
void printDescriptor(const Vuro::TISDBTDescriptor& descriptor, TreeOut& out, TagNamer name = descriptorTagName,
                     FieldPrinter fields = nullptr);

// While one lives, the bytes of every descriptor printed are recorded, so
// that the dump can tell which descriptors of a section no object held.
class PrintedDescriptors {
public:
    PrintedDescriptors();
    ~PrintedDescriptors();
    PrintedDescriptors(const PrintedDescriptors&) = delete;
    PrintedDescriptors& operator=(const PrintedDescriptors&) = delete;

    bool contains(const Vuro::U8* data) const;
    // Called by the printers for each descriptor they print.
    static void note(const Vuro::TISDBTDescriptor& descriptor);
    // The same for bytes a printer knows to be a printed descriptor's, where
    // the object holds them in a copy of its own.
    static void noteData(const Vuro::U8* data);

    // The buffers the descriptors lie in (a section, a table's copy of it):
    // the end of the one holding data, or null when none is known.
    void addSpan(const Vuro::U8* begin, const Vuro::U8* end);
    static const Vuro::U8* spanEnd(const Vuro::U8* data);

private:
    std::vector<const Vuro::U8*> m_data;
    std::vector<std::pair<const Vuro::U8*, const Vuro::U8*>> m_spans;
    PrintedDescriptors* m_outer;
};

// The "descriptors" list of a table or loop entry: everything its
// getDescriptorTags() lists, in that order.
template <class Owner>
void printDescriptorsOf(const Owner& owner, TreeOut& out, TagNamer name = descriptorTagName)
{
    out.beginList("descriptors");
    for (Vuro::U8 tag : owner.getDescriptorTags())
        if (const Vuro::TISDBTDescriptor* descriptor = owner.getDescriptor(tag))
            printDescriptor(*descriptor, out, name);
    out.end();
}

} // namespace VuroTools

#endif
