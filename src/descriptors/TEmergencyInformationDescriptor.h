#ifndef VURO_TEMERGENCY_INFORMATION_DESCRIPTOR_H
#define VURO_TEMERGENCY_INFORMATION_DESCRIPTOR_H

#include "../TISDBTItemList.h"
#include "TEmergencyInformationDescriptorItem.h"
#include "TISDBTDescriptor.h"

namespace Vuro {

/// emergency_information_descriptor (0xFC): emergency warning signalling per
/// service, the services in arrival order.
class TEmergencyInformationDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0xFC;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 4;

    TEmergencyInformationDescriptor(U8* data, U32 length);
    virtual ~TEmergencyInformationDescriptor();

    /// *parsedLength receives the length of the last item, not the body
    /// length; callers size the descriptor from its header.
    static TEmergencyInformationDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                  U16* errorCode);
    static TEmergencyInformationDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                  U16* errorCode, const U8* limit);

    U32 size() const { return m_pItems.size(); }
    /// Appends; the descriptor takes ownership.
    void add(TEmergencyInformationDescriptorItem* item) { m_pItems.add(item); }
    /// By 0-based position; null past the end.
    TEmergencyInformationDescriptorItem* get(U8 index) const { return m_pItems.get(index); }
    BOOL remove(U8 index) { return m_pItems.remove(index); }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    TISDBTItemList<TEmergencyInformationDescriptorItem> m_pItems;
};

} // namespace Vuro

#endif
