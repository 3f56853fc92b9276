#ifndef VURO_TSERVICE_LIST_DESCRIPTOR_H
#define VURO_TSERVICE_LIST_DESCRIPTOR_H

#include <list>

#include "../TISDBTItemMap.h"
#include "TISDBTDescriptor.h"
#include "TServiceListDescriptorItem.h"

namespace Vuro {

/// service_list_descriptor (0x41): the services of a transport stream with
/// their types, keyed by the item's 8-bit service id.
class TServiceListDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x41;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 2;

    TServiceListDescriptor(U8* data, U32 length);
    virtual ~TServiceListDescriptor();

    /// *parsedLength receives the length of the last item (0 for an empty
    /// loop), not the body length; callers size the descriptor from its header.
    static TServiceListDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TServiceListDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                         const U8* limit);

    U32 size() const { return m_pItems.size(); }
    /// Stores under the item's service id; an item already there is displaced
    /// and not deleted. A null item is ignored.
    void add(TServiceListDescriptorItem* item);
    TServiceListDescriptorItem* get(U8 serviceID) const { return m_pItems.get(serviceID); }
    std::list<U8> getServiceIDs() const { return m_pItems.keys(); }
    BOOL remove(U8 serviceID) { return m_pItems.remove(serviceID); }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    TISDBTItemMap<U8, TServiceListDescriptorItem> m_pItems;
};

} // namespace Vuro

#endif
