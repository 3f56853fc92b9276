#ifndef VURO_TDSI_DII_TABLE_H
#define VURO_TDSI_DII_TABLE_H

#include "../TISDBTTable.h"

namespace Vuro {

/// DSM-CC section with a DownloadServerInitiate or DownloadInfoIndication
/// message (table_id 0x3B). The library only keeps the section: a carousel
/// engine reads it through getData() / getDataLength().
class TDsiDiiTable : public TISDBTTable {
public:
    static constexpr VURO_U32 MINIMUM_DATA_LENGTH = 1;

    TDsiDiiTable(U8* sectionData, U32 dataLength);
    virtual ~TDsiDiiTable();

    /// Copies dataLength bytes and stores ERROR_OK. No header check is made
    /// (table_id and lengths are not compared); the other arguments are
    /// ignored.
    static TDsiDiiTable* parse(U8* sectionData, U32 dataLength, BOOL checkCRC32, BOOL parseDescriptors,
                               U16* errorCode, TDsiDiiTable* previous);
};

} // namespace Vuro

#endif
