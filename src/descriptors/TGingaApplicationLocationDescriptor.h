#ifndef VURO_TGINGA_APPLICATION_LOCATION_DESCRIPTOR_H
#define VURO_TGINGA_APPLICATION_LOCATION_DESCRIPTOR_H

#include <string>

#include "TISDBTDescriptor.h"

namespace Vuro {

/// Ginga application location descriptor: base_directory_length (8), base
/// directory, classpath_extension_length (8), classpath extension, and the
/// initial class (Ginga-J) or entry document (Ginga-NCL) as every remaining
/// byte. Built as its Ginga-J (0x04) or Ginga-NCL (0x07) form.
class TGingaApplicationLocationDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 2;

    virtual ~TGingaApplicationLocationDescriptor();

    /// Reads the three fields from data (the body, dataLength bytes).
    /// *parsedLength receives the sum described at parseData's definition.
    virtual BOOL parseData(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);

    std::string getBaseDirectory() const { return m_sBaseDirectory; }
    std::string getClasspathExtension() const { return m_sClasspathExt; }
    std::string getInitialClass() const { return m_sInitialClass; }

protected:
    TGingaApplicationLocationDescriptor(U8 tag, U8* data, U32 length);
    TGingaApplicationLocationDescriptor(U8 tag, std::string baseDirectory, std::string classpathExtension,
                                        std::string initialClass);
    /// A copy of the three strings under the given tag, without raw bytes.
    TGingaApplicationLocationDescriptor(U8 tag, const TGingaApplicationLocationDescriptor* source);

    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);
    /// parseData reading nothing at or beyond limit.
    BOOL parseFields(U8* sectionData, U32 dataLength, const U8* limit, U32* parsedLength, U16* errorCode);

private:
    std::string m_sBaseDirectory;
    std::string m_sClasspathExt;
    std::string m_sInitialClass;
};

} // namespace Vuro

#endif
