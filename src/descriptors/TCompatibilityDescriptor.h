#ifndef VURO_TCOMPATIBILITY_DESCRIPTOR_H
#define VURO_TCOMPATIBILITY_DESCRIPTOR_H

#include "../TISDBTItemList.h"
#include "TCompatibilityDescriptorItem.h"

namespace Vuro {

/// compatibilityDescriptor() embedded in a download content descriptor (no
/// tag of its own): compatibilityDescriptorLength (16) descriptorCount (16),
/// then the entries in arrival order.
class TCompatibilityDescriptor {
public:
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 2;

    TCompatibilityDescriptor();
    virtual ~TCompatibilityDescriptor();

    /// No header check: compatibilityDescriptorLength is skipped and the
    /// entries are walked by descriptorCount. *parsedLength receives 2 + the
    /// entries' lengths (the skipped length field is not counted). Bytes 2-3
    /// missing from the buffer fail with ERROR_INVALID_DESCRIPTOR_LENGTH.
    static TCompatibilityDescriptor* parse(VURO_U8* data, VURO_U32 dataLength, VURO_U32* parsedLength,
                                           VURO_U16* errorCode);
    static TCompatibilityDescriptor* parse(VURO_U8* data, VURO_U32 dataLength, VURO_U32* parsedLength,
                                           VURO_U16* errorCode, const U8* limit);

    /// Entries by 0-based position; null / FALSE past the end.
    VURO_U32 getCompatibilityDescriptorItemSize() const { return m_pItems.size(); }
    void addCompatibilityDescriptorItem(TCompatibilityDescriptorItem* item) { m_pItems.add(item); }
    TCompatibilityDescriptorItem* getCompatibilityDescriptorItem(VURO_U8 index) const { return m_pItems.get(index); }
    /// Unlinks and deletes the entry.
    BOOL removeCompatibilityDescriptorItem(VURO_U8 index) { return m_pItems.remove(index); }

private:
    TISDBTItemList<TCompatibilityDescriptorItem> m_pItems;
};

} // namespace Vuro

#endif
