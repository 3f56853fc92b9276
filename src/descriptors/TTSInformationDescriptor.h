#ifndef VURO_TTS_INFORMATION_DESCRIPTOR_H
#define VURO_TTS_INFORMATION_DESCRIPTOR_H

#include <string>

#include "../TISDBTItemList.h"
#include "TISDBTDescriptor.h"
#include "TTSInformationDescriptorItem.h"

namespace Vuro {

/// ts_information_descriptor (0xCD): remote_control_key_id (8),
/// length_of_ts_name (6), transmission_type_count (2), ts_name, then the
/// transmission types in arrival order.
class TTSInformationDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0xCD;
    /// Shorter TS information descriptors are refused even where the syntax
    /// would allow them (an empty name and no transmission type need only 2
    /// bytes); receivers rely on this minimum, so it is kept.
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 8;

    TTSInformationDescriptor(U8* data, U32 length);
    virtual ~TTSInformationDescriptor();

    /// *parsedLength receives the body bytes parsed (fixed bytes, name and
    /// transmission types).
    static TTSInformationDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TTSInformationDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                           const U8* limit);

    U8 getRemoteControlKeyID() const { return m_iRCKeyID; }
    /// TISDBTTable::TX_TYPE_LAYERA, _LAYERAB or _LAYERABC for 1, 2 or 3
    /// transmission types, TX_TYPE_LAYERINVALID otherwise.
    U8 getTxInformation() const { return m_iTxType; }
    std::string getTransportStreamName() const { return m_sTSName; }

    U32 getTransmissionTypeCount() const { return m_pItems.size(); }
    /// Appends; the descriptor takes ownership.
    void addTransmissionType(TTSInformationDescriptorItem* item) { m_pItems.add(item); }
    /// By 0-based position; null past the end.
    TTSInformationDescriptorItem* getTransmissionType(U8 index) const { return m_pItems.get(index); }
    BOOL removeTransmissionType(U8 index) { return m_pItems.remove(index); }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U8 m_iRCKeyID;
    std::string m_sTSName;
    VURO_U8 m_iTxType;
    TISDBTItemList<TTSInformationDescriptorItem> m_pItems;
};

} // namespace Vuro

#endif
