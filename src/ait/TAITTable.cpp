#include "TAITTable.h"

#include "../utils/VuroParseSupport.h"
#include "TApplicationDescriptorSlots.h"

namespace Vuro {

namespace {
const U32 kLoopLengthField = 2; // reserved (4), 12-bit loop length
const U32 kDescriptorHeader = TISDBTDescriptor::COMMON_HEADER_LENGTH;

U16 loopLengthAt(const U8* position)
{
    return static_cast<U16>(((position[0] & 0x0F) << 8) | position[1]);
}
} // namespace

using Slots = TApplicationDescriptorSlots<TAITTable>;

TAITTable::TAITTable(U8* sectionData, U32 dataLength)
    : TISDBTVersionedTable(AIT, MINIMUM_DATA_LENGTH, 0x74, sectionData, dataLength)
{
}

// The common descriptors, then the applications (the map member is cleared
// after this body), then the base frees the section copy they point into.
TAITTable::~TAITTable()
{
    Slots::release(*this);
}

TAITTable* TAITTable::parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, BOOL checkCRC32,
                            U16* errorCode, TAITTable* previous)
{
    return parseTable<TAITTable>(sectionData, dataLength, checkCRC32, parseDescriptors, errorCode, previous);
}

TISDBTDescriptor* TAITTable::getDescriptor(U8 tag) const
{
    return Slots::get(*this, tag);
}

std::list<U8> TAITTable::getDescriptorTags() const
{
    return Slots::tags(*this);
}

void TAITTable::addApplication(TApplication* application)
{
    if (application)
        m_pApplications.add(application->getHashID(), application);
}

TISDBTTable::BodyResult TAITTable::rejectLength(U32 length, U32 available, U16* errorCode)
{
    VURO_LOGW("%s: TAITTable::parse: Item length not valid: %u > %u. Aborting!", VURO_LOG_ORIGIN, length, available);
    ISDBTUtils::setErrorCode(errorCode, ERROR_INVALID_DATA_LENGTH);
    return BODY_FAILED;
}

TISDBTTable::BodyResult TAITTable::parseBody(U8* /*sectionData*/, U32 dataLength, U16 bodyLength,
                                             BOOL /*parseDescriptors*/, U16* errorCode)
{
    const U8* limit = m_pData + dataLength;
    U8* position = m_pData + TISDBTVersionedTable::COMMON_HEADER_LENGTH;
    // Bytes from here up to the CRC_32, 16-bit: a section_length below 9
    // wraps it, and the reads below then stop at the end of the data.
    U16 remaining = bodyLength;

    if (!requireBytes(position, limit, kLoopLengthField, errorCode))
        return BODY_FAILED;
    U16 commonLength = loopLengthAt(position);
    position += kLoopLengthField;
    remaining = static_cast<U16>(remaining - kLoopLengthField);
    if (commonLength > remaining)
        return rejectLength(commonLength, remaining, errorCode);

    // Common descriptors. Unlike an application's loop, each length is
    // compared as a signed value, so any length fails when fewer than two
    // bytes remain; the failure line reports the common loop length still to
    // go rather than the descriptor's length. Both are intended.
    while (commonLength != 0) {
        if (!fits(position, limit, kDescriptorHeader))
            return rejectLength(commonLength, bytesLeft(position, limit), errorCode);
        const U8 tag = position[0];
        const U32 length = position[1];
        const S32 left = static_cast<S32>(remaining) - static_cast<S32>(kDescriptorHeader);
        if (static_cast<S32>(length) > left)
            return rejectLength(commonLength, static_cast<U32>(left), errorCode);
        const U32 total = length + kDescriptorHeader;
        // The table has no type of its own to set from a Ginga descriptor; it
        // keeps the descriptor and says so.
        switch (tag) {
        case Slots::GINGA_J_APPLICATION:
            VURO_LOGW("%s: TAITTable::parse: Ginga Java Application Descriptor... WHAT TO DO????", VURO_LOG_ORIGIN);
            break;
        case Slots::GINGA_J_LOCATION:
            VURO_LOGW("%s: TAITTable::parse: Ginga Java Application Location Descriptor... WHAT TO DO????",
                      VURO_LOG_ORIGIN);
            break;
        case Slots::GINGA_NCL_APPLICATION:
            VURO_LOGW("%s: TAITTable::parse: Ginga NCL Application Descriptor... WHAT TO DO????", VURO_LOG_ORIGIN);
            break;
        case Slots::GINGA_NCL_LOCATION:
            VURO_LOGW("%s: TAITTable::parse: Ginga NCL Application Location Descriptor... WHAT TO DO????",
                      VURO_LOG_ORIGIN);
            break;
        default:
            break;
        }
        switch (Slots::parse(*this, position, total, errorCode, limit)) {
        case Slots::Outcome::FAILED:
            return BODY_FAILED; // the descriptor has logged and stored its code
        case Slots::Outcome::PAST_BUFFER:
            return rejectLength(commonLength, bytesLeft(position, limit) - kDescriptorHeader, errorCode);
        case Slots::Outcome::UNKNOWN:
            VURO_LOGW("%s: TAITTable::parse: Unknown descriptor: 0x%02X. Ignored!", VURO_LOG_ORIGIN, tag);
            break;
        case Slots::Outcome::STORED:
        case Slots::Outcome::STUFFING:
            break;
        }
        stepWithin(position, limit, total);
        commonLength = static_cast<U16>(commonLength - total);
        remaining = static_cast<U16>(remaining - total);
    }

    if (!requireBytes(position, limit, kLoopLengthField, errorCode))
        return BODY_FAILED;
    U16 applicationsLength = loopLengthAt(position);
    position += kLoopLengthField;
    remaining = static_cast<U16>(remaining - kLoopLengthField);
    if (applicationsLength > remaining)
        return rejectLength(applicationsLength, remaining, errorCode);

    // Each application is handed every byte that remains of the section, not
    // the loop length.
    while (applicationsLength != 0) {
        U32 consumed = 0;
        TApplication* application = TApplication::parse(position, remaining, TRUE, &consumed, errorCode, limit);
        if (!application) {
            VURO_LOGW("%s: TAITTable::parse: Invalid item. Aborting!", VURO_LOG_ORIGIN);
            ISDBTUtils::setErrorCode(errorCode, ERROR_INVALID_ITEM);
            return BODY_FAILED;
        }
        application->setParentAITTable(this);
        // The section's type wins over what the application's Ginga
        // descriptors set.
        application->setApplicationType(m_iGenericDataField);
        // Two applications with one identifier: the later wins and the
        // earlier, which nothing else refers to, is freed.
        m_pApplications.store(application->getHashID(), application);
        stepWithin(position, limit, consumed);
        applicationsLength = static_cast<U16>(applicationsLength - consumed);
        remaining = static_cast<U16>(remaining - consumed);
    }
    // The CRC_32 after the loop is not read.
    return BODY_PARSED;
}

} // namespace Vuro
