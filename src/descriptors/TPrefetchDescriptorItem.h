#ifndef VURO_TPREFETCH_DESCRIPTOR_ITEM_H
#define VURO_TPREFETCH_DESCRIPTOR_ITEM_H

#include <string>

#include "../utils/VuroISDBTUtils.h"

namespace Vuro {

/// One prefetch entry: label_length (8), label, prefetch_priority (8).
class TPrefetchDescriptorItem {
public:
    TPrefetchDescriptorItem();
    virtual ~TPrefetchDescriptorItem();

    /// Needs at least 2 bytes; reports the label bytes + 2.
    static TPrefetchDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode);
    static TPrefetchDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode,
                                          const U8* limit);

    std::string getLabel() const { return m_sLabel; }
    U8 getPriority() const { return m_iPriority; }

private:
    std::string m_sLabel;
    VURO_U8 m_iPriority;
};

} // namespace Vuro

#endif
