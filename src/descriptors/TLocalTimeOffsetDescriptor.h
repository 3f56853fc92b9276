#ifndef VURO_TLOCAL_TIME_OFFSET_DESCRIPTOR_H
#define VURO_TLOCAL_TIME_OFFSET_DESCRIPTOR_H

#include <list>
#include <string>

#include "../TISDBTItemMap.h"
#include "TISDBTDescriptor.h"
#include "TLocalTimeOffsetDescriptorItem.h"

namespace Vuro {

/// local_time_offset_descriptor (0x58): per country and region, the offset of
/// local time from UTC, keyed by the three-character country code.
class TLocalTimeOffsetDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x58;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 11;

    /// length is the whole descriptor (header included); the object records
    /// length - 2, the body alone.
    TLocalTimeOffsetDescriptor(U8* data, U32 length);
    virtual ~TLocalTimeOffsetDescriptor();

    /// *parsedLength receives the length of the last item (0 for an empty
    /// loop), not the body length; callers size the descriptor from its header.
    static TLocalTimeOffsetDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TLocalTimeOffsetDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                             const U8* limit);

    U32 size() const { return m_pItems.size(); }
    /// Stores under the item's country code; an item already there is
    /// displaced and not deleted. A null item is ignored.
    void add(TLocalTimeOffsetDescriptorItem* item);
    TLocalTimeOffsetDescriptorItem* get(std::string countryCode) const { return m_pItems.get(countryCode); }
    /// Ascending byte order.
    std::list<std::string> getCountryCodes() const { return m_pItems.keys(); }
    BOOL remove(std::string countryCode) { return m_pItems.remove(countryCode); }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    TISDBTItemMap<std::string, TLocalTimeOffsetDescriptorItem> m_pItems;
};

} // namespace Vuro

#endif
