#ifndef VURO_TTRANSPORT_PROTOCOL_DESCRIPTOR_PC_H
#define VURO_TTRANSPORT_PROTOCOL_DESCRIPTOR_PC_H

#include "TTransportProtocolCarouselDescriptor.h"

namespace Vuro {

/// Transport protocol selector of the profile C: a carousel of another broadcast (protocol_id 5; never built by parse).
class TTransportProtocolDescriptorPC : public TTransportProtocolCarouselDescriptor {
    friend class TTransportProtocolDescriptor;

public:
    /// data is the descriptor, length the descriptor_length + 2 less 2.
    TTransportProtocolDescriptorPC(U8* data, U32 length);
    /// A copy of every field and the label, without raw bytes.
    explicit TTransportProtocolDescriptorPC(TTransportProtocolDescriptorPC* source);
    virtual ~TTransportProtocolDescriptorPC();

    BOOL parseData(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode) override;

private:
    // clone's copy from any source of its type.
    explicit TTransportProtocolDescriptorPC(const TTransportProtocolDescriptor* source);
};

} // namespace Vuro

#endif
