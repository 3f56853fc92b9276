#ifndef VURO_TTS_INFORMATION_DESCRIPTOR_ITEM_H
#define VURO_TTS_INFORMATION_DESCRIPTOR_ITEM_H

#include "../TISDBTParseArena.h"
#include "../utils/VuroISDBTUtils.h"

namespace Vuro {

/// One transmission type of a TS information descriptor:
/// transmission_type_info (8), num_of_service (8), then num_of_service
/// 16-bit service_ids.
class TTSInformationDescriptorItem : public TISDBTArenaObject {
public:
    /// transmission parameter type (top two bits of transmission_type_info).
    static constexpr VURO_U8 TRANSMISSION_PARAMETER_TYPE_A = 0;
    static constexpr VURO_U8 TRANSMISSION_PARAMETER_TYPE_B = 1;
    static constexpr VURO_U8 TRANSMISSION_PARAMETER_TYPE_C = 2;
    /// modulation system (next two bits).
    static constexpr VURO_U8 MODULATION_SYSTEM_64QAM = 0;
    static constexpr VURO_U8 MODULATION_SYSTEM_16QAM = 1;
    static constexpr VURO_U8 MODULATION_SYSTEM_QPSK = 2;

    TTSInformationDescriptorItem();
    virtual ~TTSInformationDescriptorItem();

    TTSInformationDescriptorItem(const TTSInformationDescriptorItem&) = delete;
    TTSInformationDescriptorItem& operator=(const TTSInformationDescriptorItem&) = delete;

    /// Needs the 2 fixed bytes; *itemLength is 2 + 2 x num_of_service.
    static TTSInformationDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode);
    static TTSInformationDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode,
                                               const U8* limit);

    U8 getTransmissionTypeInfo() const { return m_iTransmissionTypeInfo; }
    U8 getTransmissionParameterType() const { return static_cast<U8>(m_iTransmissionTypeInfo >> 6); }
    U8 getModulationSystem() const { return static_cast<U8>((m_iTransmissionTypeInfo & 0x30) >> 4); }
    U8 getNumberOfServices() const { return m_iNumberOfServices; }
    /// Owned by the item; null when num_of_service is 0.
    U16* getServices() const { return m_pServices; }

private:
    VURO_U8 m_iTransmissionTypeInfo;
    VURO_U8 m_iNumberOfServices;
    VURO_U16* m_pServices;
};

} // namespace Vuro

#endif
