#ifndef VURO_TNVOD_REFERENCE_DESCRIPTOR_H
#define VURO_TNVOD_REFERENCE_DESCRIPTOR_H

#include "../TISDBTItemList.h"
#include "TISDBTDescriptor.h"
#include "TNVODReferenceDescriptorItem.h"

namespace Vuro {

/// NVOD_reference_descriptor (0x4B): the time-shifted services of an NVOD
/// reference service, in arrival order.
class TNVODReferenceDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x4B;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 6;

    TNVODReferenceDescriptor(U8* data, U32 length);
    virtual ~TNVODReferenceDescriptor();

    /// *parsedLength receives the length of the last item (6), not the body
    /// length; callers size the descriptor from its header.
    static TNVODReferenceDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TNVODReferenceDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                           const U8* limit);

    U32 size() const { return m_pItems.size(); }
    /// Appends; the descriptor takes ownership.
    void add(TNVODReferenceDescriptorItem* item) { m_pItems.add(item); }
    TNVODReferenceDescriptorItem* get(U8 index) const { return m_pItems.get(index); }
    BOOL remove(U8 index) { return m_pItems.remove(index); }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    TISDBTItemList<TNVODReferenceDescriptorItem> m_pItems;
};

} // namespace Vuro

#endif
