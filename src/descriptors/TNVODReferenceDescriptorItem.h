#ifndef VURO_TNVOD_REFERENCE_DESCRIPTOR_ITEM_H
#define VURO_TNVOD_REFERENCE_DESCRIPTOR_ITEM_H

#include "../TISDBTParseArena.h"
#include "../utils/VuroISDBTUtils.h"

namespace Vuro {

/// One time-shifted service of an NVOD reference descriptor:
/// transport_stream_id (16), original_network_id (16), service_id (16).
class TNVODReferenceDescriptorItem : public TISDBTArenaObject {
public:
    TNVODReferenceDescriptorItem();
    virtual ~TNVODReferenceDescriptorItem();

    /// Needs 6 bytes; *itemLength is 6.
    static TNVODReferenceDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode);
    static TNVODReferenceDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode,
                                               const U8* limit);

    U16 getTransportStreamID() const { return m_iTransportStreamID; }
    U16 getOriginalNetworkID() const { return m_iOriginalNetworkID; }
    U16 getServiceID() const { return m_iServiceID; }

private:
    VURO_U16 m_iTransportStreamID;
    VURO_U16 m_iOriginalNetworkID;
    VURO_U16 m_iServiceID;
};

} // namespace Vuro

#endif
