// The handler units, one per table class.
#ifndef VURO_TOOLS_TABLE_HANDLERS_H
#define VURO_TOOLS_TABLE_HANDLERS_H

#include <cstdio>

#include "../TableHandler.h"

namespace VuroTools {

std::unique_ptr<TableHandler> makePatHandler();
std::unique_ptr<TableHandler> makePmtHandler();
std::unique_ptr<TableHandler> makeNitHandler();
std::unique_ptr<TableHandler> makeSdtHandler();
std::unique_ptr<TableHandler> makeTotHandler();
std::unique_ptr<TableHandler> makeSdttHandler();
std::unique_ptr<TableHandler> makeDsmccSectionHandler();
std::unique_ptr<TableHandler> makeDsiDiiHandler();
std::unique_ptr<TableHandler> makeDdbHandler();
std::unique_ptr<TableHandler> makeDatacasterHandler();
std::unique_ptr<TableHandler> makeAitHandler();
// One descriptor of an AIT loop, named in the AIT's own tag space.
void printApplicationDescriptor(const Vuro::TISDBTDescriptor& descriptor, TreeOut& out);
std::unique_ptr<TableHandler> makeEitHandler();
// The handler, also handing what it parses to the programme guide (GuideFeed.cpp).
std::unique_ptr<TableHandler> feedingGuide(std::unique_ptr<TableHandler> handler);
// A further table (EIT, AIT, ...) joins with a unit tables/<Table>Handler.cpp
// deriving TableHandlerOf<T> (its parse call with the class's flag order, its
// printer, and announceFrom() for PIDs it signals, e.g. AIT and DSM-CC PIDs
// from a PMT), a make<Table>Handler() declared here and one line in
// makeTableHandlers(). Descriptors print through DescriptorPrinter:
// printDescriptorsOf(entry, out) for a table or loop entry with
// getDescriptorTags() / getDescriptor(tag), printDescriptor() for one.

} // namespace VuroTools

#endif
