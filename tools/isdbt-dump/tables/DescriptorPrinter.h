// Descriptors as the library decodes them, field by field, shared by every
// table printer. The printers live in one unit per descriptor family
// (*DescriptorPrinters.cpp) and register by tag; a descriptor class without
// a printer is shown as its tag and raw bytes.
#ifndef VURO_TOOLS_DESCRIPTOR_PRINTER_H
#define VURO_TOOLS_DESCRIPTOR_PRINTER_H

#include <cstdio>
#include <list>

#include <VuroISDBT.h>

#include "../TreeOut.h"

namespace VuroTools {

void printDescriptor(const Vuro::TISDBTDescriptor& descriptor, TreeOut& out);

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
