#ifndef VURO_TSTREAM_EVENT_DESCRIPTOR_H
#define VURO_TSTREAM_EVENT_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// stream_event_descriptor (tag 4, DSM-CC stream descriptor; older broadcasts
/// tag it 26): eventId (16) reserved (31) eventNPT (33), split into its top
/// bit (H) and lower 32 bits (L), then private data to the end of the
/// descriptor (an owned copy).
class TStreamEventDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x04;
    /// The tag older DSM-CC sections carry; the section table rewrites it to
    /// DESCRIPTOR_TAG before parsing (see TDSMCCSectionTable).
    static constexpr VURO_U8 DESCRIPTOR_TAG_OLD = 26;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 10;

    /// eventId values of the Ginga stream events.
    static constexpr VURO_U16 ISDBT_EVENT_ID_OPEN_BASE = 0;
    static constexpr VURO_U16 ISDBT_EVENT_ID_ACTIVATE_BASE = 1;
    static constexpr VURO_U16 ISDBT_EVENT_ID_DEACTIVATE_BASE = 2;
    static constexpr VURO_U16 ISDBT_EVENT_ID_SAVE_BASE = 3;
    static constexpr VURO_U16 ISDBT_EVENT_ID_CLOSE_BASE = 4;
    static constexpr VURO_U16 ISDBT_EVENT_ID_ADD_DOCUMENT = 5;
    static constexpr VURO_U16 ISDBT_EVENT_ID_REMOVE_DOCUMENT = 6;
    static constexpr VURO_U16 ISDBT_EVENT_ID_START_DOCUMENT = 7;
    static constexpr VURO_U16 ISDBT_EVENT_ID_STOP_DOCUMENT = 8;
    static constexpr VURO_U16 ISDBT_EVENT_ID_PAUSE_DOCUMENT = 9;
    static constexpr VURO_U16 ISDBT_EVENT_ID_RESUME_DOCUMENT = 10;
    static constexpr VURO_U16 ISDBT_EVENT_ID_SAVE_DOCUMENT = 46;
    static constexpr VURO_U16 ISDBT_EVENT_ID_REMOVE_BASE = 53;
    static constexpr VURO_U16 ISDBT_EVENT_ID_ADD_APPLICATION = 54;
    static constexpr VURO_U16 ISDBT_EVENT_ID_REMOVE_APPLICATION = 55;
    static constexpr VURO_U16 ISDBT_EVENT_ID_SAVE_APPLICATION = 60;

    TStreamEventDescriptor(U8* data, U32 length);
    virtual ~TStreamEventDescriptor();

    /// *parsedLength receives dataLength - 2.
    static TStreamEventDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TStreamEventDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                         const U8* limit);

    U16 getEventID() const { return m_iEventID; }
    U8 getEventNPTH() const { return m_iEventNPTH; }
    U32 getEventNPTL() const { return m_iEventNPTL; }
    /// Size kept in 8 bits; the data is null when the descriptor carries none.
    U8 getPrivateDataSize() const { return m_iPrivateDataSize; }
    U8* getPrivateData() const { return m_pPrivateData; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U16 m_iEventID;
    VURO_U8 m_iEventNPTH;
    VURO_U32 m_iEventNPTL;
    VURO_U8 m_iPrivateDataSize;
    VURO_U8* m_pPrivateData;
};

} // namespace Vuro

#endif
