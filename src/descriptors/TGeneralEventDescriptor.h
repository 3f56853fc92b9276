#ifndef VURO_TGENERAL_EVENT_DESCRIPTOR_H
#define VURO_TGENERAL_EVENT_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// general_event_descriptor (tag 4, carried with event messages):
/// event_msg_group_id (12) reserved (4) time_mode (8), 40 bits of time
/// (mode 1 and 5: MJD + BCD hhmmss; mode 2: reserved (7) NPT (33); mode 3:
/// reserved (4) relative time (36)), then event_msg_type (8), event_msg_id (16)
/// and private data (an owned copy).
class TGeneralEventDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x04;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 16;

    /// time_mode values.
    static constexpr VURO_U8 TIME_MODE_NONE = 0;
    static constexpr VURO_U8 TIME_MODE_MJD_UTC = 1;
    static constexpr VURO_U8 TIME_MODE_NPT = 2;
    static constexpr VURO_U8 TIME_MODE_EVENT_RELATIVE = 3;
    static constexpr VURO_U8 TIME_MODE_MJD_UTC_2 = 5;

    TGeneralEventDescriptor(U8* data, U32 length);
    virtual ~TGeneralEventDescriptor();

    /// *parsedLength receives dataLength - 2.
    static TGeneralEventDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TGeneralEventDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                          const U8* limit);

    U16 getEventMsgGroupID() const { return m_iEventMsgGroupID; }
    U8 getTimeMode() const { return m_iTimeMode; }
    U32 getEventMsgJSTTime() const { return m_iEventMsgJSTTime; }
    U8 getEventMsgNPTH() const { return m_iEventMsgNPTH; }
    U32 getEventMsgNPTL() const { return m_iEventMsgNPTL; }
    U8 getEventMsgRelativeTimeH() const { return m_iEventMsgRelativeTimeH; }
    U32 getEventMsgRelativeTimeL() const { return m_iEventMsgRelativeTimeL; }
    U8 getEventMsgType() const { return m_iEventMsgType; }
    U16 getEventMsgID() const { return m_iEventMsgID; }
    /// Size kept in 8 bits; the data is null when the descriptor carries none.
    U8 getPrivateDataSize() const { return m_iPrivateDataSize; }
    U8* getPrivateData() const { return m_pPrivateData; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U16 m_iEventMsgGroupID;
    VURO_U8 m_iTimeMode;
    VURO_U32 m_iEventMsgJSTTime;
    VURO_U8 m_iEventMsgNPTH;
    VURO_U32 m_iEventMsgNPTL;
    VURO_U8 m_iEventMsgRelativeTimeH;
    VURO_U32 m_iEventMsgRelativeTimeL;
    VURO_U8 m_iEventMsgType;
    VURO_U16 m_iEventMsgID;
    VURO_U8 m_iPrivateDataSize;
    VURO_U8* m_pPrivateData;
};

} // namespace Vuro

#endif
