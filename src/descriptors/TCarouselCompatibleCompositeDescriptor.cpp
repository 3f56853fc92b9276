#include "TCarouselCompatibleCompositeDescriptor.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

TCarouselCompatibleCompositeDescriptor::TCarouselCompatibleCompositeDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length)
{
}

TCarouselCompatibleCompositeDescriptor::~TCarouselCompatibleCompositeDescriptor() = default;

TCarouselCompatibleCompositeDescriptor* TCarouselCompatibleCompositeDescriptor::parse(U8* sectionData,
                                                                                      U32 dataLength,
                                                                                      U32* parsedLength,
                                                                                      U16* errorCode)
{
    return parseDescriptor<TCarouselCompatibleCompositeDescriptor>(sectionData, dataLength, parsedLength,
                                                                   errorCode, nullptr);
}

TCarouselCompatibleCompositeDescriptor* TCarouselCompatibleCompositeDescriptor::parse(U8* sectionData,
                                                                                      U32 dataLength,
                                                                                      U32* parsedLength,
                                                                                      U16* errorCode,
                                                                                      const U8* limit)
{
    return parseDescriptor<TCarouselCompatibleCompositeDescriptor>(sectionData, dataLength, parsedLength,
                                                                   errorCode, limit);
}

BOOL TCarouselCompatibleCompositeDescriptor::parseBody(U32 dataLength, const U8*, U32& parsedLength, U16*)
{
    VURO_LOGW("%s: TCarouselCompatibleCompositeDescriptor::parse: TODO: Descriptor not implemented yet. If you "
              "really need this descriptor, please contact support.",
              VURO_LOG_ORIGIN);
    parsedLength = dataLength;
    return TRUE;
}

} // namespace Vuro
