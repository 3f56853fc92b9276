// The handler units, one per table class.
#ifndef VURO_TOOLS_TABLE_HANDLERS_H
#define VURO_TOOLS_TABLE_HANDLERS_H

#include <cstdio>

#include "../TableHandler.h"

namespace VuroTools {

std::unique_ptr<TableHandler> makePatHandler();
std::unique_ptr<TableHandler> makeNitHandler();
std::unique_ptr<TableHandler> makeTotHandler();
// Further tables: one make<Table>Handler() each, listed in makeTableHandlers().

} // namespace VuroTools

#endif
