#ifndef VURO_TPARTIAL_RECEPTION_DESCRIPTOR_H
#define VURO_TPARTIAL_RECEPTION_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// partial_reception_descriptor (0xFB): the service_ids carried in the
/// partial-reception (one-segment) layer.
class TPartialReceptionDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0xFB;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 2;

    TPartialReceptionDescriptor(U8* data, U32 length);
    virtual ~TPartialReceptionDescriptor();

    /// *parsedLength receives the body length.
    static TPartialReceptionDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TPartialReceptionDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                              const U8* limit);

    U8 getServiceIDCount() const { return m_iServiceIDCount; }
    /// Owned by the descriptor; null when there are none.
    U16* getServiceIDs() const { return m_pServiceIDs; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U8 m_iServiceIDCount;
    VURO_U16* m_pServiceIDs;
};

} // namespace Vuro

#endif
