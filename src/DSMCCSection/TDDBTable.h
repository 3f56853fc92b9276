#ifndef VURO_TDDB_TABLE_H
#define VURO_TDDB_TABLE_H

#include "../TISDBTTable.h"

namespace Vuro {

/// DSM-CC section with a DownloadDataBlock message (table_id 0x3C). The
/// library only keeps the section: a carousel engine reads it through
/// getData() / getDataLength().
class TDDBTable : public TISDBTTable {
public:
    static constexpr VURO_U32 MINIMUM_DATA_LENGTH = 1;

    TDDBTable(U8* sectionData, U32 dataLength);
    virtual ~TDDBTable();

    /// Copies dataLength bytes and stores ERROR_OK. No header check is made
    /// (table_id and lengths are not compared); the other arguments are
    /// ignored.
    static TDDBTable* parse(U8* sectionData, U32 dataLength, BOOL checkCRC32, BOOL parseDescriptors,
                               U16* errorCode, TDDBTable* previous);
};

} // namespace Vuro

#endif
