#ifndef VURO_TTARGET_REGION_DESCRIPTOR_H
#define VURO_TTARGET_REGION_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// target_region_descriptor (0xC6): region_spec_type (8), then the
/// target_region_spec bytes to the end of the descriptor (an owned copy).
class TTargetRegionDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0xC6;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 1;

    TTargetRegionDescriptor(U8* data, U32 length);
    virtual ~TTargetRegionDescriptor();

    /// *parsedLength receives dataLength - 2.
    static TTargetRegionDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TTargetRegionDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                          const U8* limit);

    U16 getRegionSpecType() const { return m_iRegionSpecType; }
    /// Size kept in 8 bits; the data is null when the descriptor carries none.
    U8 getSpecSize() const { return m_iSpecSize; }
    U8* getSpecData() const { return m_pSpec; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U16 m_iRegionSpecType;
    VURO_U8 m_iSpecSize;
    VURO_U8* m_pSpec;
};

} // namespace Vuro

#endif
