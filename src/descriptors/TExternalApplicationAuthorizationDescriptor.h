#ifndef VURO_TEXTERNAL_APPLICATION_AUTHORIZATION_DESCRIPTOR_H
#define VURO_TEXTERNAL_APPLICATION_AUTHORIZATION_DESCRIPTOR_H

#include <list>
#include <string>

#include "../TISDBTItemMap.h"
#include "TExternalApplicationAuthorizationDescriptorItem.h"
#include "TISDBTDescriptor.h"

namespace Vuro {

/// external_application_authorisation_descriptor (0x05): applications of
/// other services allowed to run, keyed by the hash id of their identifier.
class TExternalApplicationAuthorizationDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x05;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 0;

    TExternalApplicationAuthorizationDescriptor(U8* data, U32 length);
    /// A deep copy of the items, without raw bytes.
    explicit TExternalApplicationAuthorizationDescriptor(TExternalApplicationAuthorizationDescriptor* source);
    virtual ~TExternalApplicationAuthorizationDescriptor();

    /// *parsedLength receives the length of the last item (7, or 0 for none).
    static TExternalApplicationAuthorizationDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                              U16* errorCode);
    static TExternalApplicationAuthorizationDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                              U16* errorCode, const U8* limit);

    U32 size() const { return m_pItems.size(); }
    /// Stores under the hash id of the item's identifier; an item already
    /// there is displaced and not deleted. A null item is ignored.
    void add(TExternalApplicationAuthorizationDescriptorItem* item);
    TExternalApplicationAuthorizationDescriptorItem* get(std::string hashId) const { return m_pItems.get(hashId); }
    /// Ascending byte order.
    std::list<std::string> getApplicationIdentifierHashIDs() const { return m_pItems.keys(); }
    BOOL remove(std::string hashId) { return m_pItems.remove(hashId); }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    TISDBTItemMap<std::string, TExternalApplicationAuthorizationDescriptorItem> m_pItems;
};

} // namespace Vuro

#endif
