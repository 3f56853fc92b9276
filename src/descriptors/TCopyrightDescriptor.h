#ifndef VURO_TCOPYRIGHT_DESCRIPTOR_H
#define VURO_TCOPYRIGHT_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// copyright_descriptor (0x0D), decoded with the layout of the hierarchical
/// transmission descriptor: reserved (7) hierarchical level (1) reserved (3)
/// reference_PID (13).
class TCopyrightDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x0D;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 3;

    TCopyrightDescriptor(U8* data, U32 length);
    virtual ~TCopyrightDescriptor();

    /// *parsedLength receives 3.
    static TCopyrightDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TCopyrightDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                       const U8* limit);

    U8 getHierarchicalLevel() const { return m_iHierarchicalLevel; }
    U16 getReferencePID() const { return m_iReferencePID; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U8 m_iHierarchicalLevel;
    VURO_U16 m_iReferencePID;
};

} // namespace Vuro

#endif
