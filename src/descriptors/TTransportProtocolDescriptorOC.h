#ifndef VURO_TTRANSPORT_PROTOCOL_DESCRIPTOR_OC_H
#define VURO_TTRANSPORT_PROTOCOL_DESCRIPTOR_OC_H

#include "TTransportProtocolCarouselDescriptor.h"

namespace Vuro {

/// Transport protocol selector of the object carousel (protocol_id 1; also built for protocol_id 5, profile C).
class TTransportProtocolDescriptorOC : public TTransportProtocolCarouselDescriptor {
    friend class TTransportProtocolDescriptor;

public:
    /// data is the descriptor, length the descriptor_length + 2 less 2.
    TTransportProtocolDescriptorOC(U8* data, U32 length);
    /// A copy of every field and the label, without raw bytes.
    explicit TTransportProtocolDescriptorOC(TTransportProtocolDescriptorOC* source);
    virtual ~TTransportProtocolDescriptorOC();

    BOOL parseData(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode) override;

private:
    // clone's copy from any source of its type.
    explicit TTransportProtocolDescriptorOC(const TTransportProtocolDescriptor* source);
};

} // namespace Vuro

#endif
