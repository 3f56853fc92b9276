#ifndef VURO_TNPT_ENDPOINT_DESCRIPTOR_H
#define VURO_TNPT_ENDPOINT_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// NPT_endpoint_descriptor (tag 2, DSM-CC stream descriptor): reserved (15)
/// startNPT (33) reserved (31) stopNPT (33), each clock split into its top bit
/// (...H) and the lower 32 bits (...L).
class TNPTEndpointDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x02;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 14;

    TNPTEndpointDescriptor(U8* data, U32 length);
    virtual ~TNPTEndpointDescriptor();

    /// parsedLength is not written.
    static TNPTEndpointDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TNPTEndpointDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                         const U8* limit);

    U8 getNPTStartH() const { return m_iNPTStartH; }
    U32 getNPTStartL() const { return m_iNPTStartL; }
    U8 getNPTStopH() const { return m_iNPTStopH; }
    U32 getNPTStopL() const { return m_iNPTStopL; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U8 m_iNPTStartH;
    VURO_U32 m_iNPTStartL;
    VURO_U8 m_iNPTStopH;
    VURO_U32 m_iNPTStopL;
};

} // namespace Vuro

#endif
