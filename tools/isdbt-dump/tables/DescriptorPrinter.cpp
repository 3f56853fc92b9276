#include "DescriptorPrinter.h"

#include <array>

#include "../Names.h"
#include "DescriptorPrinterSupport.h"

using namespace Vuro;

namespace VuroTools {

namespace {

// Printers by tag. A tag may have more than one: the same tag means
// different descriptors in different tables, and each printer takes only
// its own class.
using PrinterTable = std::array<std::vector<DescriptorFieldPrinter>, 256>;

const PrinterTable& printers()
{
    static const PrinterTable table = [] {
        PrinterTable byTag;
        for (const auto& family : {networkDescriptorPrinters(), serviceDescriptorPrinters(), streamDescriptorPrinters(),
                                   downloadDescriptorPrinters(), dsmccDescriptorPrinters()})
            for (const DescriptorPrinterEntry& entry : family)
                byTag[entry.tag].push_back(entry.print);
        return byTag;
    }();
    return table;
}

bool printFields(const TISDBTDescriptor& descriptor, TreeOut& out)
{
    for (DescriptorFieldPrinter print : printers()[descriptor.getDescriptorTag()])
        if (print(descriptor, out))
            return true;
    return false;
}

PrintedDescriptors* g_printed = nullptr;

} // namespace

PrintedDescriptors::PrintedDescriptors() : m_outer(g_printed) { g_printed = this; }

PrintedDescriptors::~PrintedDescriptors() { g_printed = m_outer; }

bool PrintedDescriptors::contains(const U8* data) const
{
    for (const U8* printed : m_data)
        if (printed == data)
            return true;
    return false;
}

void PrintedDescriptors::addSpan(const U8* begin, const U8* end) { m_spans.emplace_back(begin, end); }

const U8* PrintedDescriptors::spanEnd(const U8* data)
{
    for (const PrintedDescriptors* printed = g_printed; printed; printed = printed->m_outer)
        for (const auto& span : printed->m_spans)
            if (data >= span.first && data < span.second)
                return span.second;
    return nullptr;
}

void PrintedDescriptors::note(const TISDBTDescriptor& descriptor) { noteData(descriptor.getData()); }

void PrintedDescriptors::noteData(const U8* data)
{
    if (g_printed)
        g_printed->m_data.push_back(data);
}

void printIds(const char* key, const U16* ids, unsigned count, TreeOut& out)
{
    out.beginList(key);
    for (unsigned i = 0; ids && i < count; ++i)
        out.hexValue(ids[i], 4);
    out.end();
}

void printDescriptor(const TISDBTDescriptor& descriptor, TreeOut& out, TagNamer tagName, FieldPrinter fields)
{
    PrintedDescriptors::note(descriptor);
    const U8 tag = descriptor.getDescriptorTag();
    const char* name = tagName(tag);
    char title[64];
    std::snprintf(title, sizeof title, "descriptor 0x%02X%s%s", tag, name ? " " : "", name ? name : "");
    out.beginItem(title);
    out.named("descriptor_tag", tag, 2, name);
    if (!(fields ? fields : printFields)(descriptor, out))
        out.bytes("data", descriptor.getData(), descriptor.getDataLength());
    out.end();
}

} // namespace VuroTools
