#include "TTransportProtocolDescriptorDC.h"

namespace Vuro {

TTransportProtocolDescriptorDC::TTransportProtocolDescriptorDC(U8* data, U32 length)
    : TTransportProtocolCarouselDescriptor(DataCarousel, 4, data, length)
{
}

TTransportProtocolDescriptorDC::TTransportProtocolDescriptorDC(TTransportProtocolDescriptorDC* source)
    : TTransportProtocolCarouselDescriptor(DataCarousel, 4, source)
{
}

TTransportProtocolDescriptorDC::TTransportProtocolDescriptorDC(const TTransportProtocolDescriptor* source)
    : TTransportProtocolCarouselDescriptor(DataCarousel, 4, source)
{
}

TTransportProtocolDescriptorDC::~TTransportProtocolDescriptorDC() = default;

BOOL TTransportProtocolDescriptorDC::parseData(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode)
{
    return parseSelector("%s: TTransportProtocolDescriptorDC::parse: Item length not valid: %u. Aborting!",
                         sectionData, dataLength, parsedLength, errorCode);
}

} // namespace Vuro
