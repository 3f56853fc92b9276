#include "TGingaJavaApplicationDescriptor.h"

namespace Vuro {

TGingaJavaApplicationDescriptor::TGingaJavaApplicationDescriptor(U8* data, U32 length)
    : TGingaApplicationDescriptor(DESCRIPTOR_TAG, data, length)
{
}

TGingaJavaApplicationDescriptor::TGingaJavaApplicationDescriptor(TGingaJavaApplicationDescriptor* source)
    : TGingaApplicationDescriptor(DESCRIPTOR_TAG, source)
{
}

TGingaJavaApplicationDescriptor::~TGingaJavaApplicationDescriptor() = default;

TGingaJavaApplicationDescriptor* TGingaJavaApplicationDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                      U32* parsedLength, U16* errorCode)
{
    return parseDescriptor<TGingaJavaApplicationDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TGingaJavaApplicationDescriptor* TGingaJavaApplicationDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                      U32* parsedLength, U16* errorCode,
                                                                      const U8* limit)
{
    return parseDescriptor<TGingaJavaApplicationDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

} // namespace Vuro
