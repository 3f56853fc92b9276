#ifndef VURO_TTOT_TABLE_H
#define VURO_TTOT_TABLE_H

#include <list>

#include "../TISDBTTable.h"
#include "../descriptors/TLocalTimeOffsetDescriptor.h"

namespace Vuro {

/// time_offset_section (PID 0x0014, table_id 0x73, short header): UTC_time
/// (40: MJD + BCD hhmmss), then a descriptor loop that may carry the local
/// time offset descriptor.
class TTOTTable : public TISDBTTable {
    friend class TISDBTTable;

public:
    static constexpr VURO_U32 MINIMUM_DATA_LENGTH = 10;

    TTOTTable(U8* sectionData, U32 dataLength);
    virtual ~TTOTTable();

    /// Flag order: checkCRC32 (never verified), then parseDescriptors. With
    /// parseDescriptors false the table returns after the time, no descriptor
    /// is built and errorCode keeps the caller's value. The body is read from
    /// the table's own copy, so its descriptors live as long as the table.
    static TTOTTable* parse(U8* sectionData, U32 dataLength, BOOL checkCRC32, BOOL parseDescriptors,
                            U16* errorCode, TTOTTable* previous);

    /// UTC_time in seconds since 1970-01-01 00:00 UTC.
    S32 getUnixTime() const { return m_iUnixTime; }
    /// Null when the section carries none.
    TLocalTimeOffsetDescriptor* getLocalTimeOffsetDescriptor() const { return m_pLocalTimeOffsetDesc; }

    TISDBTDescriptor* getDescriptor(U8 tag) const override;
    std::list<U8> getDescriptorTags() const override;

private:
    BodyResult parseBody(U8* sectionData, U32 dataLength, U16 bodyLength, BOOL parseDescriptors, U16* errorCode);

    VURO_S32 m_iUnixTime;
    TLocalTimeOffsetDescriptor* m_pLocalTimeOffsetDesc;
};

} // namespace Vuro

#endif
