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

#include "../TreeOut.h"

namespace VuroTools {

void printDescriptor(const Vuro::TISDBTDescriptor& descriptor, TreeOut& out);

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
void printDescriptorsOf(const Owner& owner, TreeOut& out)
{
    out.beginList("descriptors");
    for (Vuro::U8 tag : owner.getDescriptorTags())
        if (const Vuro::TISDBTDescriptor* descriptor = owner.getDescriptor(tag))
            printDescriptor(*descriptor, out);
    out.end();
}

} // namespace VuroTools

#endif
