#include "TTransportProtocolDescriptorOC.h"

namespace Vuro {

TTransportProtocolDescriptorOC::TTransportProtocolDescriptorOC(U8* data, U32 length)
    : TTransportProtocolCarouselDescriptor(ObjectCarousel, 1, data, length)
{
}

TTransportProtocolDescriptorOC::TTransportProtocolDescriptorOC(TTransportProtocolDescriptorOC* source)
    : TTransportProtocolCarouselDescriptor(ObjectCarousel, 1, source)
{
}

TTransportProtocolDescriptorOC::TTransportProtocolDescriptorOC(const TTransportProtocolDescriptor* source)
    : TTransportProtocolCarouselDescriptor(ObjectCarousel, 1, source)
{
}

TTransportProtocolDescriptorOC::~TTransportProtocolDescriptorOC() = default;

BOOL TTransportProtocolDescriptorOC::parseData(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode)
{
    return parseSelector("%s: TTransportProtocolDescriptorOC::parse: Item length not valid: %u. Aborting!",
                         sectionData, dataLength, parsedLength, errorCode);
}

} // namespace Vuro
