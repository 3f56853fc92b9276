#ifndef VURO_TCOMPATIBILITY_DESCRIPTOR_ITEM_H
#define VURO_TCOMPATIBILITY_DESCRIPTOR_ITEM_H

#include "../TISDBTItemList.h"
#include "TCompatibilityDescriptorSubItem.h"

namespace Vuro {

/// One entry of a compatibility descriptor: descriptorType (8)
/// descriptorLength (8) specifierType (8) specifierData (24) model (16)
/// version (16) subDescriptorCount (8), then the sub-descriptors in arrival
/// order.
class TCompatibilityDescriptorItem {
public:
    TCompatibilityDescriptorItem();
    virtual ~TCompatibilityDescriptorItem();

    /// *parsedLength receives 11 + the sub-descriptors' lengths.
    static TCompatibilityDescriptorItem* parse(VURO_U8* data, VURO_U32 dataLength, VURO_U32* parsedLength,
                                               VURO_U16* errorCode);
    static TCompatibilityDescriptorItem* parse(VURO_U8* data, VURO_U32 dataLength, VURO_U32* parsedLength,
                                               VURO_U16* errorCode, const U8* limit);

    VURO_U8 getDescriptorType() const { return m_iDescriptorType; }
    VURO_U8 getSpecifierType() const { return m_iSpecifierType; }
    VURO_U32 getSpecifierData() const { return m_iSpecifierData; }
    VURO_U16 getModel() const { return m_iModel; }
    VURO_U16 getVersion() const { return m_iVersion; }

    /// Sub-descriptors by 0-based position; null / FALSE past the end.
    VURO_U32 getCompatibilityDescriptorSubItemSize() const { return m_pItems.size(); }
    void addCompatibilityDescriptorSubItem(TCompatibilityDescriptorSubItem* item) { m_pItems.add(item); }
    TCompatibilityDescriptorSubItem* getCompatibilityDescriptorSubItem(VURO_U8 index) const
    {
        return m_pItems.get(index);
    }
    /// Unlinks and deletes the sub-descriptor.
    BOOL removeCompatibilityDescriptorSubItem(VURO_U8 index) { return m_pItems.remove(index); }

private:
    VURO_U8 m_iDescriptorType;
    VURO_U8 m_iSpecifierType;
    VURO_U32 m_iSpecifierData;
    VURO_U16 m_iModel;
    VURO_U16 m_iVersion;
    TISDBTItemList<TCompatibilityDescriptorSubItem> m_pItems;
};

} // namespace Vuro

#endif
