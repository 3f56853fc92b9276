#include "TDSMCCSectionTable.h"

#include "../descriptors/TISDBTDescriptorSlots.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

// The four stream descriptor slots, in member order.
struct TDSMCCStreamDescriptorSlots {
    template <class Owner, class Visit>
    static void forEachSlot(Owner& table, Visit visit)
    {
        visit(table.m_pNPTReferenceDesc);
        visit(table.m_pNPTEndpointDesc);
        visit(table.m_pStreamModeDesc);
        visit(table.m_pStreamEventDesc);
    }
};

namespace {
using Slots = TISDBTDescriptorSlots<TDSMCCStreamDescriptorSlots>;
const U32 kHeader = TISDBTDescriptor::COMMON_HEADER_LENGTH;
} // namespace

TDSMCCSectionTable::TDSMCCSectionTable(U8* sectionData, U32 dataLength)
    : TISDBTVersionedTable(DSMCC_SECTION, MINIMUM_DATA_LENGTH, 0x3D, sectionData, dataLength),
      m_iDataEventID(0), m_iEventMsgGroupID(0), m_pNPTReferenceDesc(nullptr), m_pNPTEndpointDesc(nullptr),
      m_pStreamModeDesc(nullptr), m_pStreamEventDesc(nullptr)
{
}

TDSMCCSectionTable::~TDSMCCSectionTable()
{
    Slots::release(*this);
}

TDSMCCSectionTable* TDSMCCSectionTable::parse(U8* sectionData, U32 dataLength, BOOL checkCRC32,
                                              BOOL parseDescriptors, U16* errorCode, TDSMCCSectionTable* previous)
{
    return parseTable<TDSMCCSectionTable>(sectionData, dataLength, checkCRC32, parseDescriptors, errorCode,
                                          previous);
}

TISDBTDescriptor* TDSMCCSectionTable::getDescriptor(U8 tag) const
{
    return Slots::get(*this, tag);
}

std::list<U8> TDSMCCSectionTable::getDescriptorTags() const
{
    return Slots::tags(*this);
}

TISDBTTable::BodyResult TDSMCCSectionTable::rejectLength(U32 tag, U32 available, U16* errorCode)
{
    // The first argument is the tag byte, not the descriptor's length: the
    // line has always been written so and log filters expect it. Kept.
    VURO_LOGW("%s: TDSMCCSectionTable::parse: Item length not valid: %u > %u. Aborting!", VURO_LOG_ORIGIN, tag,
              available);
    ISDBTUtils::setErrorCode(errorCode, ERROR_INVALID_DATA_LENGTH);
    return BODY_FAILED;
}

TISDBTTable::BodyResult TDSMCCSectionTable::parseBody(U8* sectionData, U32 dataLength, U16 bodyLength,
                                                      BOOL /*parseDescriptors*/, U16* errorCode)
{
    m_iDataEventID = static_cast<VURO_U8>(m_iGenericDataField >> 12);
    m_iEventMsgGroupID = static_cast<VURO_U16>(m_iGenericDataField & 0x0FFF);

    // The walk reads the caller's buffer, so the descriptors borrow it. Each
    // descriptor must fit in what the 16-bit body count leaves (so the count
    // never wraps and the loop ends at exactly zero). A section_length too
    // small for the header wraps that count, and the walk then stops where
    // the buffer ends, with the same line naming the bytes the buffer has.
    const U8* limit = sectionData + dataLength;
    U8* position = sectionData + TISDBTVersionedTable::COMMON_HEADER_LENGTH;
    U16 remaining = bodyLength;
    while (remaining != 0) {
        const U32 inBuffer = bytesLeft(position, limit);
        if (inBuffer < kHeader)
            return rejectLength(kHeader, inBuffer, errorCode);
        const U8 tag = position[0];
        const S32 length = position[1];
        if (length > static_cast<S32>(remaining) - static_cast<S32>(kHeader))
            return rejectLength(tag, static_cast<U32>(static_cast<S32>(remaining) - static_cast<S32>(kHeader)),
                                errorCode);
        const U32 total = static_cast<U32>(length) + kHeader;
        if (tag == TStreamEventDescriptor::DESCRIPTOR_TAG_OLD) {
            // Older broadcasts tag the stream event descriptor 26. The tag
            // byte is rewritten to 4 in the caller's buffer so that the
            // descriptor passes its own header check; writing into the input
            // is intended, and the only place the library does so.
            position[0] = TStreamEventDescriptor::DESCRIPTOR_TAG;
        }
        switch (Slots::parse(*this, position, total, errorCode, limit)) {
        case Slots::STORED:
            break;
        case Slots::FAILED:
            return BODY_FAILED;
        case Slots::PAST_BUFFER:
            return rejectLength(tag, inBuffer - kHeader, errorCode);
        case Slots::STUFFING:
        case Slots::UNKNOWN:
            VURO_LOGW("%s: TDSMCCSectionTable::parse: Unknown descriptor: 0x%02X. Ignored!", VURO_LOG_ORIGIN, tag);
            break;
        }
        remaining = static_cast<U16>(remaining - total);
        // Skipping an unknown descriptor reads nothing of it; one running
        // past the buffer leaves the next header read at the end.
        stepWithin(position, limit, total);
    }
    return BODY_PARSED;
}

} // namespace Vuro
