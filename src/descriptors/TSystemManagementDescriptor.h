#ifndef VURO_TSYSTEM_MANAGEMENT_DESCRIPTOR_H
#define VURO_TSYSTEM_MANAGEMENT_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// system_management_descriptor (0xFE): system_management_id (broadcasting
/// flag 2, broadcasting identifier 6, additional broadcasting identification 8)
/// and the additional_identification_info bytes.
class TSystemManagementDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0xFE;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 2;

    /// Values of the 2-bit broadcasting flag (top bits of the identifier).
    static constexpr VURO_U8 FLAG_OPEN = 0;
    static constexpr VURO_U8 FLAG_CLOSE_1 = 1;
    static constexpr VURO_U8 FLAG_CLOSE_2 = 2;
    static constexpr VURO_U8 FLAG_UNDEFINED = 3;
    /// Broadcasting identifier of ISDB terrestrial broadcasting.
    static constexpr VURO_U8 IDENTIFIER_ISDB = 3;

    TSystemManagementDescriptor(U8* data, U32 length);
    virtual ~TSystemManagementDescriptor();

    /// *parsedLength receives the body length.
    static TSystemManagementDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TSystemManagementDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                              const U8* limit);

    /// The whole 16-bit system_management_id; callers split it with the
    /// constants above.
    U16 getSystemManagementID() const { return m_iSystemMngID; }
    U8 getAdditionalIdentificationInfoSize() const { return m_iAdditionalIdentInfoSize; }
    /// Owned by the descriptor; null when the body holds only the identifier.
    U8* getAdditionalIdentificationInfo() const { return m_pAdditionalIdentInfo; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U16 m_iSystemMngID;
    VURO_U8 m_iAdditionalIdentInfoSize;
    VURO_U8* m_pAdditionalIdentInfo;
};

} // namespace Vuro

#endif
