#ifndef VURO_TSERVICE_LIST_DESCRIPTOR_ITEM_H
#define VURO_TSERVICE_LIST_DESCRIPTOR_ITEM_H

#include "../TISDBTParseArena.h"
#include "../utils/VuroISDBTUtils.h"

namespace Vuro {

/// One service of a service list descriptor: service_id (16) service_type (8).
class TServiceListDescriptorItem : public TISDBTArenaObject {
public:
    TServiceListDescriptorItem();
    virtual ~TServiceListDescriptorItem();

    /// The service id is the two service_id bytes combined by bitwise OR (no
    /// shift) and kept in 8 bits; receivers key their service lists on this
    /// value, so it is intended. An item is accepted from 2 bytes on although
    /// it consumes 3; *itemLength is 3.
    static TServiceListDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode);
    static TServiceListDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode,
                                             const U8* limit);

    U8 getServiceID() const { return m_iServiceID; }
    U8 getServiceType() const { return m_iServiceType; }

private:
    VURO_U8 m_iServiceID;
    VURO_U8 m_iServiceType;
};

} // namespace Vuro

#endif
