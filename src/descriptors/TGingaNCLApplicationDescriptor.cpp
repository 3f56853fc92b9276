#include "TGingaNCLApplicationDescriptor.h"

namespace Vuro {

TGingaNCLApplicationDescriptor::TGingaNCLApplicationDescriptor(U8* data, U32 length)
    : TGingaApplicationDescriptor(DESCRIPTOR_TAG, data, length)
{
}

TGingaNCLApplicationDescriptor::TGingaNCLApplicationDescriptor(TGingaNCLApplicationDescriptor* source)
    : TGingaApplicationDescriptor(DESCRIPTOR_TAG, source)
{
}

TGingaNCLApplicationDescriptor::~TGingaNCLApplicationDescriptor() = default;

TGingaNCLApplicationDescriptor* TGingaNCLApplicationDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                      U32* parsedLength, U16* errorCode)
{
    return parseDescriptor<TGingaNCLApplicationDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TGingaNCLApplicationDescriptor* TGingaNCLApplicationDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                      U32* parsedLength, U16* errorCode,
                                                                      const U8* limit)
{
    return parseDescriptor<TGingaNCLApplicationDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

} // namespace Vuro
