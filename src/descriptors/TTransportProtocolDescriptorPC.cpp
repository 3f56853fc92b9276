#include "TTransportProtocolDescriptorPC.h"

namespace Vuro {

TTransportProtocolDescriptorPC::TTransportProtocolDescriptorPC(U8* data, U32 length)
    : TTransportProtocolCarouselDescriptor(ObjectCarousel, 1, data, length)
{
    // A profile-C object reports the object carousel type with protocol 5,
    // written after the base is built; kept as receivers expect it.
    m_iProtocolID = 5;
}

// The copy keeps protocol 1, unlike the parsed object: intended.
TTransportProtocolDescriptorPC::TTransportProtocolDescriptorPC(TTransportProtocolDescriptorPC* source)
    : TTransportProtocolCarouselDescriptor(ObjectCarousel, 1, source)
{
}

TTransportProtocolDescriptorPC::TTransportProtocolDescriptorPC(const TTransportProtocolDescriptor* source)
    : TTransportProtocolCarouselDescriptor(ObjectCarousel, 1, source)
{
}

TTransportProtocolDescriptorPC::~TTransportProtocolDescriptorPC() = default;

BOOL TTransportProtocolDescriptorPC::parseData(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode)
{
    return parseSelector("%s: TTransportProtocolDescriptorPC::parse: Item length not valid: %u. Aborting!",
                         sectionData, dataLength, parsedLength, errorCode);
}

} // namespace Vuro
