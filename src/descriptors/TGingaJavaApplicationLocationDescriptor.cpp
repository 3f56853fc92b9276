#include "TGingaJavaApplicationLocationDescriptor.h"

namespace Vuro {

TGingaJavaApplicationLocationDescriptor::TGingaJavaApplicationLocationDescriptor(U8* data, U32 length)
    : TGingaApplicationLocationDescriptor(DESCRIPTOR_TAG, data, length)
{
}

TGingaJavaApplicationLocationDescriptor::TGingaJavaApplicationLocationDescriptor(std::string baseDirectory,
                                                                               std::string classpathExtension,
                                                                               std::string initialClass)
    : TGingaApplicationLocationDescriptor(DESCRIPTOR_TAG, baseDirectory, classpathExtension, initialClass)
{
}

TGingaJavaApplicationLocationDescriptor::TGingaJavaApplicationLocationDescriptor(
    TGingaJavaApplicationLocationDescriptor* source)
    : TGingaApplicationLocationDescriptor(DESCRIPTOR_TAG, source)
{
}

TGingaJavaApplicationLocationDescriptor::~TGingaJavaApplicationLocationDescriptor() = default;

TGingaJavaApplicationLocationDescriptor* TGingaJavaApplicationLocationDescriptor::parse(U8* sectionData,
                                                                                      U32 dataLength,
                                                                                      U32* parsedLength,
                                                                                      U16* errorCode)
{
    return parseDescriptor<TGingaJavaApplicationLocationDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                                   nullptr);
}

TGingaJavaApplicationLocationDescriptor* TGingaJavaApplicationLocationDescriptor::parse(
    U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode, const U8* limit)
{
    return parseDescriptor<TGingaJavaApplicationLocationDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                                   limit);
}

} // namespace Vuro
