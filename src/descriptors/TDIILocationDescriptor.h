#ifndef VURO_TDIILOCATION_DESCRIPTOR_H
#define VURO_TDIILOCATION_DESCRIPTOR_H

#include "../TISDBTItemList.h"
#include "TISDBTDescriptor.h"
#include "TDIILocationDescriptorItem.h"

namespace Vuro {

/// DII_location_descriptor (0x0D): transport_protocol_label (8), then the
/// DII messages of the application's carousel, in wire order.
class TDIILocationDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x0D;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 4;

    TDIILocationDescriptor(U8* data, U32 length);
    /// A deep copy of the label and the items, without raw bytes.
    explicit TDIILocationDescriptor(TDIILocationDescriptor* source);
    virtual ~TDIILocationDescriptor();

    /// *parsedLength receives the length of the last item, not the body length.
    static TDIILocationDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TDIILocationDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                  const U8* limit);

    U8 getTransportProtocolLabel() const { return m_iTransportProtocolLabel; }
    U32 size() const { return m_pItems.size(); }
    /// Appends; the descriptor takes ownership.
    void add(TDIILocationDescriptorItem* item) { m_pItems.add(item); }
    /// Null / FALSE at or beyond size().
    TDIILocationDescriptorItem* get(U32 index) const { return m_pItems.get(index); }
    BOOL remove(U32 index) { return m_pItems.remove(index); }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U8 m_iTransportProtocolLabel;
    TISDBTItemList<TDIILocationDescriptorItem> m_pItems;
};

} // namespace Vuro

#endif
