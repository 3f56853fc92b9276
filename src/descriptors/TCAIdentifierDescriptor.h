#ifndef VURO_TCA_IDENTIFIER_DESCRIPTOR_H
#define VURO_TCA_IDENTIFIER_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// CA_identifier_descriptor (0x53): the conditional-access systems a service
/// or event may use, as a list of 16-bit CA_system_ids.
class TCAIdentifierDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x53;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 2;

    TCAIdentifierDescriptor(U8* data, U32 length);
    virtual ~TCAIdentifierDescriptor();

    /// *parsedLength receives dataLength - 2.
    static TCAIdentifierDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TCAIdentifierDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                          const U8* limit);

    U8 getCASystemIDCount() const { return m_iCASystemIDCount; }
    /// getCASystemIDCount() ids, or null when there are none.
    U16* getCASystemIDs() const { return m_pCASystemIDs; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U8 m_iCASystemIDCount;
    VURO_U16* m_pCASystemIDs;
};

} // namespace Vuro

#endif
