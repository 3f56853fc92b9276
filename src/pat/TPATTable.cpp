#include "TPATTable.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kEntryLength = 4; // program_number (16), reserved (3), PID (13)
}

TPATTable::TPATTable(U8* sectionData, U32 dataLength)
    : TISDBTVersionedTable(PAT, MINIMUM_DATA_LENGTH, 0x00, sectionData, dataLength), m_iNetworkPid(0)
{
}

TPATTable::~TPATTable() = default;

TPATTable* TPATTable::parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, BOOL checkCRC32,
                            U16* errorCode, TPATTable* previous)
{
    return parseTable<TPATTable>(sectionData, dataLength, checkCRC32, parseDescriptors, errorCode, previous);
}

void TPATTable::add(TProgramAssociation* item)
{
    if (item)
        m_pItems.add(item->getProgramNumber(), item);
}

TISDBTTable::BodyResult TPATTable::parseBody(U8* sectionData, U32 dataLength, U16 bodyLength,
                                             BOOL /*parseDescriptors*/, U16* errorCode)
{
    const U8* limit = sectionData + dataLength;
    U8* position = sectionData + TISDBTVersionedTable::COMMON_HEADER_LENGTH;
    // The 16-bit body count is stepped by 4 and the loop ends only at exactly
    // zero: a body that is not a multiple of 4 skips zero and walks on, which
    // stops (failing) where the data ends.
    while (bodyLength != 0) {
        if (!requireBytes(position, limit, kEntryLength, errorCode))
            return BODY_FAILED;
        const U16 programNumber = readU16(position);
        const U16 pid = static_cast<U16>(((position[2] & 0x1F) << 8) | position[3]);
        if (programNumber != 0)
            m_pItems.store(programNumber, new TProgramAssociation(programNumber, pid));
        else
            m_iNetworkPid = pid; // the last program_number 0 entry wins
        position += kEntryLength;
        bodyLength = static_cast<U16>(bodyLength - kEntryLength);
    }
    return BODY_PARSED;
}

} // namespace Vuro
