#ifndef VURO_TCONTENT_AVAILABILITY_DESCRIPTOR_H
#define VURO_TCONTENT_AVAILABILITY_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// content_availability_descriptor (0xDE): reserved (2)
/// image_constraint_token (1) retention_mode (1) retention_state (3)
/// encryption_mode (1).
class TContentAvailabilityDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0xDE;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 1;

    /// retention_state: how long a recording may be kept.
    static constexpr VURO_U8 RETENTION_STATE_NO_LIMIT = 0;
    static constexpr VURO_U8 RETENTION_STATE_ONE_WEEK = 1;
    static constexpr VURO_U8 RETENTION_STATE_2_DAYS = 2;
    static constexpr VURO_U8 RETENTION_STATE_1_DAY = 3;
    static constexpr VURO_U8 RETENTION_STATE_12_HOURS = 4;
    static constexpr VURO_U8 RETENTION_STATE_6_HOURS = 5;
    static constexpr VURO_U8 RETENTION_STATE_3_HOURS = 6;
    static constexpr VURO_U8 RETENTION_STATE_1_HALF_HOUR = 7;

    TContentAvailabilityDescriptor(U8* data, U32 length);
    virtual ~TContentAvailabilityDescriptor();

    /// *parsedLength receives dataLength (the header bytes included).
    static TContentAvailabilityDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                 U16* errorCode);
    static TContentAvailabilityDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                 U16* errorCode, const U8* limit);

    /// The three flags (not retention_state) are TRUE when their bit is clear: the
    /// inverted reading receivers have always had is kept.
    ///@{
    BOOL isImageConstraintToken() const { return m_bImageConstraintToken; }
    BOOL isRetentionMode() const { return m_bRetentionMode; }
    U8 getRetentionState() const { return m_iRetentionState; }
    BOOL isEncryptionMode() const { return m_bEncryptionMode; }
    ///@}

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_BOOL m_bImageConstraintToken;
    VURO_BOOL m_bRetentionMode;
    VURO_U8 m_iRetentionState;
    VURO_BOOL m_bEncryptionMode;
};

} // namespace Vuro

#endif
