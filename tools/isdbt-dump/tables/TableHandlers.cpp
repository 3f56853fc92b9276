#include "TableHandlers.h"

#include "../Names.h"
#include "DescriptorPrinter.h"

using namespace Vuro;

namespace VuroTools {

std::vector<std::unique_ptr<TableHandler>> makeTableHandlers()
{
    std::vector<std::unique_ptr<TableHandler>> handlers;
    handlers.push_back(makePatHandler());
    handlers.push_back(makePmtHandler());
    handlers.push_back(makeNitHandler());
    handlers.push_back(feedingGuide(makeSdtHandler()));
    handlers.push_back(feedingGuide(makeTotHandler()));
    handlers.push_back(makeEitHandler());
    handlers.push_back(makeSdttHandler());
    handlers.push_back(makeDsmccSectionHandler());
    handlers.push_back(makeDsiDiiHandler());
    handlers.push_back(makeDdbHandler());
    handlers.push_back(makeDatacasterHandler());
    handlers.push_back(makeAitHandler());
    // A table whose class is not listed here is counted as "not decoded".
    return handlers;
}

void printVersionedHeader(const TISDBTVersionedTable& table, const char* extensionName, TreeOut& out)
{
    out.hex(extensionName, table.getGenericDataField(), 4);
    out.number("version_number", table.getVersion());
    out.flag("current_next_indicator", table.getCurrentIndicator() != 0);
    out.number("section_number", table.getSectionNumber());
    out.number("last_section_number", table.getLastSectionNumber());
}

void printRawDescriptor(const TISDBTDescriptor& descriptor, TreeOut& out)
{
    PrintedDescriptors::note(descriptor);
    out.named("tag", descriptor.getDescriptorTag(), 2, descriptorTagName(descriptor.getDescriptorTag()));
    out.bytes("data", descriptor.getData(), descriptor.getDataLength());
}

} // namespace VuroTools
