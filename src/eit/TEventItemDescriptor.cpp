#include "TEventItemDescriptor.h"

#include <cstring>

#include "../descriptors/TAudioComponentDescriptor.h"
#include "../descriptors/TComponentDescriptor.h"
#include "../descriptors/TContentDescriptor.h"
#include "../descriptors/TDigitalCopyControlDescriptor.h"
#include "../descriptors/TParentalRatingDescriptor.h"
#include "../descriptors/TShortEventDescriptor.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {

const U32 kFixedLength = 12;      // event_id .. descriptors_loop_length
const U32 kDescriptorHeader = TISDBTDescriptor::COMMON_HEADER_LENGTH;

// Start (MJD + BCD) and duration (BCD) times.
U32 bcdSeconds(const U8* hms)
{
    return 3600u * ISDBTUtils::bcd2U8(hms[0]) + 60u * ISDBTUtils::bcd2U8(hms[1]) + ISDBTUtils::bcd2U8(hms[2]);
}

enum TagRule { PARSED, SKIPPED, REFUSED };

TagRule ruleFor(U8 tag)
{
    switch (tag) {
    case TDigitalCopyControlDescriptor::DESCRIPTOR_TAG:
    case TShortEventDescriptor::DESCRIPTOR_TAG:
    case TComponentDescriptor::DESCRIPTOR_TAG:
    case TContentDescriptor::DESCRIPTOR_TAG:
    case TParentalRatingDescriptor::DESCRIPTOR_TAG:
    case TAudioComponentDescriptor::DESCRIPTOR_TAG:
        return PARSED;
    case 0x42: // stuffing
    case 0x4E: // extended event
    case 0xC7: // data content
    case 0xD5: // series
    case 0xD6: // event group
    case 0xD9: // component group
    case 0xDE: // content availability
        return SKIPPED;
    default:
        return REFUSED;
    }
}

// One of the five descriptors handed descriptor_length + 2 bytes.
TISDBTDescriptor* parseSized(U8 tag, U8* at, U32 length, U16* errorCode, const U8* limit)
{
    switch (tag) {
    case TDigitalCopyControlDescriptor::DESCRIPTOR_TAG:
        return TDigitalCopyControlDescriptor::parse(at, length, nullptr, errorCode, limit);
    case TComponentDescriptor::DESCRIPTOR_TAG:
        return TComponentDescriptor::parse(at, length, nullptr, errorCode, limit);
    case TContentDescriptor::DESCRIPTOR_TAG:
        return TContentDescriptor::parse(at, length, nullptr, errorCode, limit);
    case TParentalRatingDescriptor::DESCRIPTOR_TAG:
        return TParentalRatingDescriptor::parse(at, length, nullptr, errorCode, limit);
    default:
        return TAudioComponentDescriptor::parse(at, length, nullptr, errorCode, limit);
    }
}

} // namespace

TEventItemDescriptor::TEventItemDescriptor()
    : m_iEvent_id(0), m_iStart_time(0), m_iDuration(0), m_iRunning_status(0), m_iFree_CA_mode(FALSE),
      m_iStartHour(0), m_iStartMinute(0), m_iDurationHour(0), m_iDurationMinute(0), m_iSectionNumber(0),
      m_iTableId(0), data(nullptr), dataLength(0)
{
}

TEventItemDescriptor::~TEventItemDescriptor()
{
    descriptors.clear(); // the descriptors point into the copy
    delete[] data;
}

void TEventItemDescriptor::addDescriptor(U8 tag, TISDBTDescriptor* descriptor)
{
    descriptors.add(tag, descriptor);
}

TISDBTDescriptor* TEventItemDescriptor::getDescriptor(U8 tag) const
{
    return descriptors.get(tag);
}

std::map<U8, TISDBTDescriptor*> TEventItemDescriptor::getAll() const
{
    return descriptors.items();
}

std::list<U8> TEventItemDescriptor::getDescriptorTags() const
{
    return descriptors.keys();
}

TEventItemDescriptor* TEventItemDescriptor::parse(U8* sectionData, U32 dataLength, U32* itemLength,
                                                  U16* errorCode)
{
    if (dataLength < kFixedLength || !sectionData) {
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    TEventItemDescriptor* event = new TEventItemDescriptor();
    // The copy runs from this event to the end of what was handed in (normally
    // the rest of the section); its length member is 16 bits wide.
    event->data = new VURO_U8[dataLength];
    std::memcpy(event->data, sectionData, dataLength);
    event->dataLength = static_cast<VURO_U16>(dataLength);

    const U8* bytes = event->data;
    event->m_iEvent_id = readU16(bytes);
    // Summed in 32 bits: past 2038 the start wraps like mjd2unix.
    event->m_iStart_time = static_cast<U32>(ISDBTUtils::mjd2unix(readU16(bytes + 2))) + bcdSeconds(bytes + 4);
    event->m_iStartHour = ISDBTUtils::bcd2U8(bytes[4]);
    event->m_iStartMinute = ISDBTUtils::bcd2U8(bytes[5]);
    event->m_iDuration = bcdSeconds(bytes + 7);
    event->m_iDurationHour = ISDBTUtils::bcd2U8(bytes[7]);
    event->m_iDurationMinute = ISDBTUtils::bcd2U8(bytes[8]);
    // free_CA_mode (bit 4 of byte 10) is deliberately not read: receivers
    // have always reported it as FALSE.
    event->m_iRunning_status = static_cast<U8>(bytes[10] >> 5);

    if (!event->parseDescriptors(dataLength, itemLength, errorCode)) {
        delete event;
        return nullptr;
    }
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return event;
}

BOOL TEventItemDescriptor::parseDescriptors(U32 available, U32* itemLength, U16* errorCode)
{
    const U8* limit = data + available;
    // The loop length is a signed count (12 bits, reduced by at most 257 a
    // step, so it never wraps), and a descriptor longer than what is left of
    // it ends the loop.
    S32 loopLength = ((data[10] & 0x0F) << 8) | data[11];
    U32 offset = kFixedLength;
    while (loopLength > 0) {
        // The tag and length bytes must lie inside the data.
        if (offset > available || available - offset < kDescriptorHeader) {
            ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
            return FALSE;
        }
        U8* at = data + offset;
        const U8 tag = at[0];
        const U32 length = at[1] + kDescriptorHeader;
        switch (ruleFor(tag)) {
        case REFUSED:
            // Deliberately strict: an event carrying a descriptor outside the
            // thirteen known tags is refused whole, with the caller's code.
            return FALSE;
        case SKIPPED:
            break;
        case PARSED: {
            TISDBTDescriptor* parsed = nullptr;
            if (tag == TShortEventDescriptor::DESCRIPTOR_TAG) {
                // Handed what remains of the whole input after the 12 fixed
                // bytes, not its own size: its string bounds are computed from
                // that value, as receivers always have. Its reads stop at the
                // end of the copy.
                U32 parsedLength = 0;
                parsed = TShortEventDescriptor::parse(at, available - kFixedLength, &parsedLength, errorCode, limit);
            } else {
                // These read their own descriptor_length + 2 bytes, which must
                // lie inside the data.
                if (length > available - offset) {
                    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
                    return FALSE;
                }
                parsed = parseSized(tag, at, length, errorCode, limit);
            }
            if (parsed)
                descriptors.store(tag, parsed); // a repeated tag: the later wins, the earlier is freed
            else
                // Left out; ERROR_OK at the end of the parse overwrites this.
                ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
            break;
        }
        }
        offset += length;
        loopLength -= static_cast<S32>(length);
        if (itemLength)
            *itemLength += length;
    }
    return TRUE;
}

} // namespace Vuro
