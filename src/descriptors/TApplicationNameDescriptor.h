#ifndef VURO_TAPPLICATION_NAME_DESCRIPTOR_H
#define VURO_TAPPLICATION_NAME_DESCRIPTOR_H

#include <list>
#include <string>

#include "../TISDBTItemMap.h"
#include "TApplicationNameDescriptorItem.h"
#include "TISDBTDescriptor.h"

namespace Vuro {

/// application_name_descriptor (0x01): the application's name per language,
/// keyed by the three-character language code.
class TApplicationNameDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x01;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 4;

    /// An empty descriptor, for callers building one by hand.
    TApplicationNameDescriptor();
    TApplicationNameDescriptor(U8* data, U32 length);
    /// A deep copy of the names, without raw bytes.
    explicit TApplicationNameDescriptor(TApplicationNameDescriptor* source);
    virtual ~TApplicationNameDescriptor();

    /// *parsedLength receives the length of the last item, not the body length.
    static TApplicationNameDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TApplicationNameDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                             const U8* limit);

    U32 size() const { return m_pItems.size(); }
    /// Stores under the item's language code; an item already there is
    /// displaced and not deleted. A null item is ignored.
    void add(TApplicationNameDescriptorItem* item);
    TApplicationNameDescriptorItem* get(std::string code) const { return m_pItems.get(code); }
    /// Ascending byte order.
    std::list<std::string> getLanguageCodes() const { return m_pItems.keys(); }
    BOOL remove(std::string code) { return m_pItems.remove(code); }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    TISDBTItemMap<std::string, TApplicationNameDescriptorItem> m_pItems;
};

} // namespace Vuro

#endif
