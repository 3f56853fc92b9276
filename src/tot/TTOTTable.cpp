#include "TTOTTable.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kUtcTimeOffset = 3;         // UTC_time: MJD (16), hours, minutes, seconds (BCD)
const U32 kLoopLengthOffset = 8;      // reserved (4), descriptors_loop_length (12)
const U32 kDescriptorLoopOffset = 10;
} // namespace

TTOTTable::TTOTTable(U8* sectionData, U32 dataLength)
    : TISDBTTable(TOT, MINIMUM_DATA_LENGTH, 0x73, sectionData, dataLength),
      m_iUnixTime(0),
      m_pLocalTimeOffsetDesc(nullptr)
{
}

TTOTTable::~TTOTTable()
{
    delete m_pLocalTimeOffsetDesc;
}

TTOTTable* TTOTTable::parse(U8* sectionData, U32 dataLength, BOOL checkCRC32, BOOL parseDescriptors,
                            U16* errorCode, TTOTTable* previous)
{
    return parseTable<TTOTTable>(sectionData, dataLength, checkCRC32, parseDescriptors, errorCode, previous);
}

TISDBTDescriptor* TTOTTable::getDescriptor(U8 tag) const
{
    return tag == TLocalTimeOffsetDescriptor::DESCRIPTOR_TAG ? m_pLocalTimeOffsetDesc : nullptr;
}

std::list<U8> TTOTTable::getDescriptorTags() const
{
    std::list<U8> tags;
    if (m_pLocalTimeOffsetDesc)
        tags.push_back(TLocalTimeOffsetDescriptor::DESCRIPTOR_TAG);
    return tags;
}

TISDBTTable::BodyResult TTOTTable::parseBody(U8* /*sectionData*/, U32 /*dataLength*/, U16 /*bodyLength*/,
                                             BOOL parseDescriptors, U16* errorCode)
{
    // The header check admitted at least MINIMUM_DATA_LENGTH bytes, which
    // hold UTC_time and descriptors_loop_length.
    const U8* time = m_pData + kUtcTimeOffset;
    // Summed in 32 bits like the day's seconds: past 2038 the value wraps
    // negative, as mjd2unix does.
    const U32 seconds = static_cast<U32>(ISDBTUtils::mjd2unix(readU16(time))) + 3600u * ISDBTUtils::bcd2U8(time[2]) +
                        60u * ISDBTUtils::bcd2U8(time[3]) + ISDBTUtils::bcd2U8(time[4]);
    m_iUnixTime = static_cast<S32>(seconds);
    if (!parseDescriptors)
        return BODY_PARSED_KEEP_CODE;

    // The loop is walked by its own 16-bit count, which stops only at exactly
    // zero; section_length plays no part. A descriptor longer than what is
    // left of the count wraps it and the walk goes on over the bytes that
    // follow. Every descriptor must lie inside the section buffer: the walk
    // stops with the length code where one would not.
    const U8* limit = m_pData + m_iDataLength;
    U16 loopCount = static_cast<U16>(((m_pData[kLoopLengthOffset] & 0x0F) << 8) | m_pData[kLoopLengthOffset + 1]);
    U8* position = m_pData + kDescriptorLoopOffset;
    while (loopCount != 0) {
        if (!requireBytes(position, limit, TISDBTDescriptor::COMMON_HEADER_LENGTH, errorCode))
            return BODY_FAILED;
        const U8 tag = position[0];
        const U32 length = position[1] + TISDBTDescriptor::COMMON_HEADER_LENGTH;
        if (tag == TLocalTimeOffsetDescriptor::DESCRIPTOR_TAG) {
            // A second local time offset descriptor replaces the first.
            if (!requireBytes(position, limit, length, errorCode) ||
                !TISDBTDescriptor::parseInto(m_pLocalTimeOffsetDesc, position, length, errorCode, limit))
                return BODY_FAILED;
        } else {
            // Skipping reads nothing of the body, so an unknown descriptor
            // that closes the loop may claim more bytes than the data holds.
            VURO_LOGW("%s: TTOTTable::parse: Unknown descriptor: 0x%02X. Ignored!", VURO_LOG_ORIGIN, tag);
        }
        loopCount = static_cast<U16>(loopCount - length);
        if (loopCount == 0)
            break;
        // Another descriptor follows, so this one must end inside the data.
        if (!requireBytes(position, limit, length, errorCode))
            return BODY_FAILED;
        position += length;
    }
    return BODY_PARSED;
}

} // namespace Vuro
