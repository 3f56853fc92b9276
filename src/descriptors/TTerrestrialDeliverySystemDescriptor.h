#ifndef VURO_TTERRESTRIAL_DELIVERY_SYSTEM_DESCRIPTOR_H
#define VURO_TTERRESTRIAL_DELIVERY_SYSTEM_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// terrestrial_delivery_system_descriptor (0xFA): area_code (12),
/// guard_interval (2), transmission_mode (2), then 16-bit frequency codes.
class TTerrestrialDeliverySystemDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0xFA;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 4;

    /// guard_interval values (the constants' names are spelt "INTERNVAL";
    /// callers use these names).
    static constexpr VURO_U8 GUARD_INTERNVAL_1_32 = 0;
    static constexpr VURO_U8 GUARD_INTERNVAL_1_16 = 1;
    static constexpr VURO_U8 GUARD_INTERNVAL_1_8 = 2;
    static constexpr VURO_U8 GUARD_INTERNVAL_1_4 = 3;
    /// transmission_mode values.
    static constexpr VURO_U8 TRANSMISSION_MODE_1 = 0;
    static constexpr VURO_U8 TRANSMISSION_MODE_2 = 1;
    static constexpr VURO_U8 TRANSMISSION_MODE_3 = 2;

    TTerrestrialDeliverySystemDescriptor(U8* data, U32 length);
    virtual ~TTerrestrialDeliverySystemDescriptor();

    /// *parsedLength receives the body length.
    static TTerrestrialDeliverySystemDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                       U16* errorCode);
    static TTerrestrialDeliverySystemDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                       U16* errorCode, const U8* limit);

    U16 getAreaCode() const { return m_iAreaCode; }
    U8 getGuardInterval() const { return m_iGuardInterval; }
    U8 getTransmissionMode() const { return m_iTransmissionMode; }
    U8 getFrequencyCounter() const { return m_iFrequencyCounter; }
    /// Frequency codes as carried (no unit conversion); owned by the
    /// descriptor, null when there are none.
    U16* getFrequencies() const { return m_pFrequencies; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U16 m_iAreaCode;
    VURO_U8 m_iGuardInterval;
    VURO_U8 m_iTransmissionMode;
    VURO_U8 m_iFrequencyCounter;
    VURO_U16* m_pFrequencies;
};

} // namespace Vuro

#endif
