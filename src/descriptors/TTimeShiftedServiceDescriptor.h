#ifndef VURO_TTIME_SHIFTED_SERVICE_DESCRIPTOR_H
#define VURO_TTIME_SHIFTED_SERVICE_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// time_shifted_service_descriptor (0x4C): reference_service_id (16) of the
/// NVOD reference service this service time-shifts.
class TTimeShiftedServiceDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x4C;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 2;

    TTimeShiftedServiceDescriptor(U8* data, U32 length);
    virtual ~TTimeShiftedServiceDescriptor();

    /// *parsedLength receives 2.
    static TTimeShiftedServiceDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                U16* errorCode);
    static TTimeShiftedServiceDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                U16* errorCode, const U8* limit);

    U16 getReferenceServiceID() const { return m_iReferenceServiceID; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U16 m_iReferenceServiceID;
};

} // namespace Vuro

#endif
