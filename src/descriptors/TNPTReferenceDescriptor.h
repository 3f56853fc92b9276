#ifndef VURO_TNPT_REFERENCE_DESCRIPTOR_H
#define VURO_TNPT_REFERENCE_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// NPT_reference_descriptor (tag 1, DSM-CC stream descriptor):
/// post_discontinuity_indicator (1) dsm_contentId (7) reserved (7)
/// STC_Reference (33) reserved (31) NPT_Reference (33) scaleNumerator (16)
/// scaleDenominator (16). 33-bit clocks are split into their top bit (...H)
/// and the lower 32 bits (...L).
class TNPTReferenceDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x01;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 18;

    TNPTReferenceDescriptor(U8* data, U32 length);
    virtual ~TNPTReferenceDescriptor();

    /// parsedLength is not written.
    static TNPTReferenceDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TNPTReferenceDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                          const U8* limit);

    BOOL isPostDiscontinuity() const { return m_bPostDiscontinuity; }
    U8 getDSMCCContentID() const { return m_iDSMCCContentID; }
    U8 getSTCReferenceH() const { return m_iSTCReferenceH; }
    U32 getSTCReferenceL() const { return m_iSTCReferenceL; }
    U8 getNPTReferenceH() const { return m_iNPTReferenceH; }
    U32 getNPTReferenceL() const { return m_iNPTReferenceL; }
    U16 getScaleNumerator() const { return m_iScaleNumerator; }
    U16 getScaleDenominator() const { return m_iScaleDenominator; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_BOOL m_bPostDiscontinuity;
    VURO_U8 m_iDSMCCContentID;
    VURO_U8 m_iSTCReferenceH;
    VURO_U32 m_iSTCReferenceL;
    VURO_U8 m_iNPTReferenceH;
    VURO_U32 m_iNPTReferenceL;
    VURO_U16 m_iScaleNumerator;
    VURO_U16 m_iScaleDenominator;
};

} // namespace Vuro

#endif
