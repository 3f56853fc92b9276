#ifndef VURO_THIERARCHICAL_TRANSMISSION_DESCRIPTOR_H
#define VURO_THIERARCHICAL_TRANSMISSION_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// hierarchical_transmission_descriptor (0xC0): reserved (7) quality_level (1)
/// reserved (3) reference_PID (13).
class THierarchicalTransmissionDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0xC0;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 3;

    THierarchicalTransmissionDescriptor(U8* data, U32 length);
    virtual ~THierarchicalTransmissionDescriptor();

    /// *parsedLength receives 3.
    static THierarchicalTransmissionDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                      U16* errorCode);
    static THierarchicalTransmissionDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                      U16* errorCode, const U8* limit);

    U8 getQualityLevel() const { return m_iQualityLevel; }
    U16 getReferencePID() const { return m_iReferencePID; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U8 m_iQualityLevel;
    VURO_U16 m_iReferencePID;
};

} // namespace Vuro

#endif
