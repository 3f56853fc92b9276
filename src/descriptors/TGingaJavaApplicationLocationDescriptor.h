#ifndef VURO_TGINGA_JAVA_APPLICATION_LOCATION_DESCRIPTOR_H
#define VURO_TGINGA_JAVA_APPLICATION_LOCATION_DESCRIPTOR_H

#include "TGingaApplicationLocationDescriptor.h"

namespace Vuro {

/// The Ginga-J application location descriptor (0x04): base directory,
/// classpath extension and the initial class.
class TGingaJavaApplicationLocationDescriptor : public TGingaApplicationLocationDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x04;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 4;

    TGingaJavaApplicationLocationDescriptor(U8* data, U32 length);
    TGingaJavaApplicationLocationDescriptor(std::string baseDirectory, std::string classpathExtension,
                                         std::string initialClass);
    /// A copy of the three strings, without raw bytes.
    explicit TGingaJavaApplicationLocationDescriptor(TGingaJavaApplicationLocationDescriptor* source);
    virtual ~TGingaJavaApplicationLocationDescriptor();

    static TGingaJavaApplicationLocationDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                        U16* errorCode);
    static TGingaJavaApplicationLocationDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                        U16* errorCode, const U8* limit);
};

} // namespace Vuro

#endif
