#include "TPMTTable.h"

#include "../utils/VuroParseSupport.h"
#include "TStreamDescriptorSlots.h"

namespace Vuro {

namespace {
const U32 kFixedFields = 4; // reserved (3), PCR_PID (13), reserved (4), program_info_length (12)
const U32 kDescriptorHeader = TISDBTDescriptor::COMMON_HEADER_LENGTH;
using Slots = TStreamDescriptorSlots<TPMTTable>;
} // namespace

TPMTTable::TPMTTable(U8* sectionData, U32 dataLength)
    : TISDBTVersionedTable(PMT, MINIMUM_DATA_LENGTH, 0x02, sectionData, dataLength), m_iPCRPID(0)
{
}

// The streams first, then the programme descriptors; the base then frees the
// section copy they all point into.
TPMTTable::~TPMTTable()
{
    m_pItems.clear();
    Slots::release(*this);
}

TPMTTable* TPMTTable::parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, BOOL checkCRC32,
                            U16* errorCode, TPMTTable* previous)
{
    return parseTable<TPMTTable>(sectionData, dataLength, checkCRC32, parseDescriptors, errorCode, previous);
}

TISDBTDescriptor* TPMTTable::getDescriptor(U8 tag) const
{
    return Slots::get(*this, tag);
}

std::list<U8> TPMTTable::getDescriptorTags() const
{
    return Slots::tags(*this);
}

template <class Match>
std::list<TProgramMap*> TPMTTable::select(Match match) const
{
    std::list<TProgramMap*> found;
    for (TProgramMap* entry : m_pItems.items())
        if (entry && match(*entry))
            found.push_back(entry);
    return found;
}

std::list<TProgramMap*> TPMTTable::getProgramMapByStreamType(U8 streamType) const
{
    return select([streamType](const TProgramMap& entry) { return entry.getStreamType() == streamType; });
}

std::list<TProgramMap*> TPMTTable::getProgramMapsByStreamType(U8 streamType) const
{
    return getProgramMapByStreamType(streamType);
}

std::list<TProgramMap*> TPMTTable::getProgramMapByComponentTag(U8 componentTag) const
{
    return select([componentTag](const TProgramMap& entry) {
        const TStreamIdentifierDescriptor* stream = entry.getStreamIdentifierDescriptor(FALSE, nullptr);
        return stream && stream->getComponentTag() == componentTag;
    });
}

std::list<TProgramMap*> TPMTTable::getProgramMap(U8 streamType, U8 componentID) const
{
    return select([streamType, componentID](const TProgramMap& entry) {
        const TDataComponentDescriptor* data = entry.getDataComponentDescriptor(FALSE, nullptr);
        return entry.getStreamType() == streamType && data && data->getDataComponentID() == componentID;
    });
}

BOOL TPMTTable::rejectLength(U32 length, U32 available, U16* errorCode)
{
    VURO_LOGW("%s: TPMTTable::parse: Item length not valid: %u > %u. Aborting!", VURO_LOG_ORIGIN, length,
              available);
    ISDBTUtils::setErrorCode(errorCode, ERROR_INVALID_DATA_LENGTH);
    return FALSE;
}

TISDBTTable::BodyResult TPMTTable::parseBody(U8* /*sectionData*/, U32 dataLength, U16 bodyLength,
                                             BOOL /*parseDescriptors*/, U16* errorCode)
{
    const U8* limit = m_pData + dataLength;
    U8* position = m_pData + TISDBTVersionedTable::COMMON_HEADER_LENGTH;
    if (!fits(position, limit, kFixedFields)) {
        rejectLength(kFixedFields, bytesLeft(position, limit), errorCode);
        return BODY_FAILED;
    }
    // The reserved bits are not validated.
    m_iPCRPID = static_cast<U16>(((position[0] & 0x1F) << 8) | position[1]);
    U16 programInfoLength = static_cast<U16>(((position[2] & 0x0F) << 8) | position[3]);
    position += kFixedFields;
    // What is left of the body after the two fields, 16-bit like the body
    // length itself.
    U16 remaining = static_cast<U16>(bodyLength - kFixedFields);
    if (remaining < programInfoLength) {
        VURO_LOGW("%s: TPMTTable::parse: Longer data length is required: %u < %u. Aborting!", VURO_LOG_ORIGIN,
                  remaining, programInfoLength);
        ISDBTUtils::setErrorCode(errorCode, ERROR_INVALID_DESCRIPTOR_LENGTH);
        return BODY_FAILED;
    }
    if (dataLength < programInfoLength) {
        rejectLength(programInfoLength, dataLength, errorCode);
        return BODY_FAILED;
    }

    // Programme descriptors. Each descriptor_length is held against the whole
    // data length less its header, the same bound for the whole loop and not
    // the bytes left: a loose check, kept as the table has always made it.
    // The buffer still bounds every descriptor that is read. The 16-bit loop
    // count ends the loop only at exactly zero. Every kind is checked here,
    // ISO 639 language included.
    const auto reject = [errorCode](U32 length, U32 available) { return rejectLength(length, available, errorCode); };
    // A trace of each carousel identifier met, at the warning priority every
    // table line uses (only the EPG record writes at info priority).
    const auto announce = [](U8 tag) {
        if (tag == TCarouselIdentifierDescriptor::DESCRIPTOR_TAG)
            VURO_LOGW("%s: TPMTTable::parse: Parsing Carousel Identifier Descriptor...", VURO_LOG_ORIGIN);
    };
    while (programInfoLength != 0) {
        U32 total = 0;
        if (!Slots::parseNext(*this, position, limit, dataLength - kDescriptorHeader, Slots::CHECK_LANGUAGE,
                              errorCode, total, reject, announce))
            return BODY_FAILED;
        remaining = static_cast<U16>(remaining - total);
        programInfoLength = static_cast<U16>(programInfoLength - total);
    }

    // Streams, until the 16-bit count is exactly zero; an entry longer than
    // what is left wraps it, and the walk goes on until an entry fails.
    while (remaining != 0) {
        U32 itemLength = 0;
        TProgramMap* entry = TProgramMap::parse(position, remaining, TRUE, &itemLength, errorCode, limit);
        if (!entry) {
            VURO_LOGW("%s: TPMTTable::parse: Invalid item. Aborting!", VURO_LOG_ORIGIN);
            ISDBTUtils::setErrorCode(errorCode, ERROR_INVALID_ITEM);
            return BODY_FAILED;
        }
        addProgramMap(entry);
        stepWithin(position, limit, itemLength);
        remaining = static_cast<U16>(remaining - itemLength);
    }
    return BODY_PARSED;
}

} // namespace Vuro
