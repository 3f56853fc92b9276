#ifndef VURO_TGINGA_NCL_APPLICATION_LOCATION_DESCRIPTOR_H
#define VURO_TGINGA_NCL_APPLICATION_LOCATION_DESCRIPTOR_H

#include "TGingaApplicationLocationDescriptor.h"

namespace Vuro {

/// The Ginga-NCL application location descriptor (0x07): base directory,
/// classpath extension and the entry document.
class TGingaNCLApplicationLocationDescriptor : public TGingaApplicationLocationDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x07;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 4;

    TGingaNCLApplicationLocationDescriptor(U8* data, U32 length);
    TGingaNCLApplicationLocationDescriptor(std::string baseDirectory, std::string classpathExtension,
                                         std::string initialClass);
    /// A copy of the three strings, without raw bytes.
    explicit TGingaNCLApplicationLocationDescriptor(TGingaNCLApplicationLocationDescriptor* source);
    virtual ~TGingaNCLApplicationLocationDescriptor();

    static TGingaNCLApplicationLocationDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                        U16* errorCode);
    static TGingaNCLApplicationLocationDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                        U16* errorCode, const U8* limit);
};

} // namespace Vuro

#endif
