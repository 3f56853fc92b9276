#include "TGingaNCLApplicationLocationDescriptor.h"

namespace Vuro {

TGingaNCLApplicationLocationDescriptor::TGingaNCLApplicationLocationDescriptor(U8* data, U32 length)
    : TGingaApplicationLocationDescriptor(DESCRIPTOR_TAG, data, length)
{
}

TGingaNCLApplicationLocationDescriptor::TGingaNCLApplicationLocationDescriptor(std::string baseDirectory,
                                                                               std::string classpathExtension,
                                                                               std::string initialClass)
    : TGingaApplicationLocationDescriptor(DESCRIPTOR_TAG, baseDirectory, classpathExtension, initialClass)
{
}

TGingaNCLApplicationLocationDescriptor::TGingaNCLApplicationLocationDescriptor(
    TGingaNCLApplicationLocationDescriptor* source)
    : TGingaApplicationLocationDescriptor(DESCRIPTOR_TAG, source)
{
}

TGingaNCLApplicationLocationDescriptor::~TGingaNCLApplicationLocationDescriptor() = default;

TGingaNCLApplicationLocationDescriptor* TGingaNCLApplicationLocationDescriptor::parse(U8* sectionData,
                                                                                      U32 dataLength,
                                                                                      U32* parsedLength,
                                                                                      U16* errorCode)
{
    return parseDescriptor<TGingaNCLApplicationLocationDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                                   nullptr);
}

TGingaNCLApplicationLocationDescriptor* TGingaNCLApplicationLocationDescriptor::parse(
    U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode, const U8* limit)
{
    return parseDescriptor<TGingaNCLApplicationLocationDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                                   limit);
}

} // namespace Vuro
