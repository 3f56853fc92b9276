#ifndef VURO_TPREFETCH_DESCRIPTOR_H
#define VURO_TPREFETCH_DESCRIPTOR_H

#include "../TISDBTItemList.h"
#include "TISDBTDescriptor.h"
#include "TPrefetchDescriptorItem.h"

namespace Vuro {

/// prefetch_descriptor (0x0C): transport_protocol_label (8), then the
/// files or objects to fetch ahead, in wire order.
class TPrefetchDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x0C;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 4;

    TPrefetchDescriptor(U8* data, U32 length);
    /// A deep copy of the label and the items, without raw bytes.
    explicit TPrefetchDescriptor(TPrefetchDescriptor* source);
    virtual ~TPrefetchDescriptor();

    /// *parsedLength receives the length of the last item, not the body length.
    static TPrefetchDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TPrefetchDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                  const U8* limit);

    U8 getTransportProtocolLabel() const { return m_iTransportProtocolLabel; }
    U32 size() const { return m_pItems.size(); }
    /// Appends; the descriptor takes ownership.
    void add(TPrefetchDescriptorItem* item) { m_pItems.add(item); }
    /// Null / FALSE at or beyond size().
    TPrefetchDescriptorItem* get(U32 index) const { return m_pItems.get(index); }
    BOOL remove(U32 index) { return m_pItems.remove(index); }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U8 m_iTransportProtocolLabel;
    TISDBTItemList<TPrefetchDescriptorItem> m_pItems;
};

} // namespace Vuro

#endif
