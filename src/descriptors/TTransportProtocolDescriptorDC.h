#ifndef VURO_TTRANSPORT_PROTOCOL_DESCRIPTOR_DC_H
#define VURO_TTRANSPORT_PROTOCOL_DESCRIPTOR_DC_H

#include "TTransportProtocolCarouselDescriptor.h"

namespace Vuro {

/// Transport protocol selector of the data carousel (protocol_id 4).
class TTransportProtocolDescriptorDC : public TTransportProtocolCarouselDescriptor {
    friend class TTransportProtocolDescriptor;

public:
    /// data is the descriptor, length the descriptor_length + 2 less 2.
    TTransportProtocolDescriptorDC(U8* data, U32 length);
    /// A copy of every field and the label, without raw bytes.
    explicit TTransportProtocolDescriptorDC(TTransportProtocolDescriptorDC* source);
    virtual ~TTransportProtocolDescriptorDC();

    BOOL parseData(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode) override;

private:
    // clone's copy from any source of its type.
    explicit TTransportProtocolDescriptorDC(const TTransportProtocolDescriptor* source);
};

} // namespace Vuro

#endif
