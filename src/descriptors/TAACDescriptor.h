#ifndef VURO_TAAC_DESCRIPTOR_H
#define VURO_TAAC_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// AAC_descriptor (0x7C): profile_and_level (8) AAC_type_flag (1) reserved (7)
/// [AAC_type (8) when the flag is set] additional_info to the end of the
/// descriptor (an owned copy).
class TAACDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x7C;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 2;

    /// profile_and_level values.
    static constexpr VURO_U8 PROFILE_ACC_L1 = 0x28;
    static constexpr VURO_U8 PROFILE_ACC_L2 = 0x29;
    static constexpr VURO_U8 PROFILE_ACC_L4 = 0x2A;
    static constexpr VURO_U8 PROFILE_ACC_L5 = 0x2B;
    static constexpr VURO_U8 PROFILE_HIGH_EFFICIENCY_ACC_L2 = 0x2C;
    static constexpr VURO_U8 PROFILE_HIGH_EFFICIENCY_ACC_L3 = 0x2D;
    static constexpr VURO_U8 PROFILE_HIGH_EFFICIENCY_ACC_L4 = 0x2E;
    static constexpr VURO_U8 PROFILE_HIGH_EFFICIENCY_ACC_L5 = 0x2F;
    static constexpr VURO_U8 PROFILE_NOT_SPECIFIED = 0xFE;
    static constexpr VURO_U8 PROFILE_NO_AUDIO_INFO = 0xFF;

    TAACDescriptor(U8* data, U32 length);
    virtual ~TAACDescriptor();

    /// *parsedLength receives 2 (3 with an AAC type) plus the additional info
    /// size (the 8-bit size member).
    static TAACDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TAACDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                 const U8* limit);

    U8 getProfileAndLevel() const { return m_iProfileAndLevel; }
    BOOL hasAACType() const { return m_bAACTypeFlag; }
    U8 getAACType() const { return m_iAACType; }
    /// Size kept in 8 bits; the data is null when the descriptor carries none.
    U8 getAdditionalInfoSize() const { return m_iAdditionalInfoSize; }
    U8* getAdditionalInfo() const { return m_pAdditionalInfo; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U8 m_iProfileAndLevel;
    VURO_BOOL m_bAACTypeFlag;
    VURO_U8 m_iAACType;
    VURO_U8 m_iAdditionalInfoSize;
    VURO_U8* m_pAdditionalInfo;
};

} // namespace Vuro

#endif
