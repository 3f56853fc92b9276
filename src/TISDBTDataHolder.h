#ifndef VURO_TISDBT_DATA_HOLDER_H
#define VURO_TISDBT_DATA_HOLDER_H

#include "TISDBTParseArena.h"
#include "utils/VuroISDBTUtils.h"

namespace Vuro {

/// Raw bytes behind a parsed object: a table's private copy of its section, or
/// the borrowed span a descriptor was parsed from.
class TISDBTDataHolder : public TISDBTArenaObject {
public:
    /// With allocate true the bytes are copied into an owned array (nothing is
    /// copied from a null data pointer); otherwise data itself is kept.
    TISDBTDataHolder(U8* data, U32 length, BOOL allocate);
    virtual ~TISDBTDataHolder();

    TISDBTDataHolder(const TISDBTDataHolder&) = delete;
    TISDBTDataHolder& operator=(const TISDBTDataHolder&) = delete;

    U8* getData() const { return m_pData; }
    U32 getDataLength() const { return m_iDataLength; }

protected:
    VURO_U8* m_pData;
    VURO_U32 m_iDataLength;
    VURO_BOOL m_bAllocated;
};

} // namespace Vuro

#endif
