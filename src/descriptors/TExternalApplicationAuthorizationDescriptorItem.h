#ifndef VURO_TEXTERNAL_APPLICATION_AUTHORIZATION_DESCRIPTOR_ITEM_H
#define VURO_TEXTERNAL_APPLICATION_AUTHORIZATION_DESCRIPTOR_ITEM_H

#include "../ait/TApplicationIdentifier.h"

namespace Vuro {

/// One authorised application (7 bytes): application_identifier (48),
/// application_priority (8).
class TExternalApplicationAuthorizationDescriptorItem {
public:
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 1;

    TExternalApplicationAuthorizationDescriptorItem();
    /// A copy with its own identifier.
    explicit TExternalApplicationAuthorizationDescriptorItem(TExternalApplicationAuthorizationDescriptorItem* source);
    virtual ~TExternalApplicationAuthorizationDescriptorItem();

    TExternalApplicationAuthorizationDescriptorItem(const TExternalApplicationAuthorizationDescriptorItem&) = delete;
    TExternalApplicationAuthorizationDescriptorItem& operator=(
        const TExternalApplicationAuthorizationDescriptorItem&) = delete;

    /// Needs at least 7 bytes; reports 7.
    static TExternalApplicationAuthorizationDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength,
                                                                  U16* errorCode);
    static TExternalApplicationAuthorizationDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength,
                                                                  U16* errorCode, const U8* limit);

    /// Owned by the item.
    TApplicationIdentifier* getApplicationIdentifier() const { return m_pAppIdentifier; }
    U8 getPriority() const { return m_iPriority; }

private:
    TApplicationIdentifier* m_pAppIdentifier;
    VURO_U8 m_iPriority;
};

} // namespace Vuro

#endif
