#ifndef VURO_TDII_LOCATION_DESCRIPTOR_ITEM_H
#define VURO_TDII_LOCATION_DESCRIPTOR_ITEM_H

#include "../utils/VuroISDBTUtils.h"

namespace Vuro {

/// One DII location (4 bytes): reserved (1), DII_identification (15),
/// association_tag (16).
class TDIILocationDescriptorItem {
public:
    TDIILocationDescriptorItem();
    virtual ~TDIILocationDescriptorItem();

    /// Needs at least 4 bytes; reports 4.
    static TDIILocationDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode);
    static TDIILocationDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode,
                                             const U8* limit);

    U16 getDIIIdentification() const { return m_iDIIIdentification; }
    U16 getAssociationTag() const { return m_iAssociationTag; }

private:
    VURO_U16 m_iDIIIdentification;
    VURO_U16 m_iAssociationTag;
};

} // namespace Vuro

#endif
