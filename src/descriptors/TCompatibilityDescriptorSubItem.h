#ifndef VURO_TCOMPATIBILITY_DESCRIPTOR_SUB_ITEM_H
#define VURO_TCOMPATIBILITY_DESCRIPTOR_SUB_ITEM_H

#include "../utils/VuroISDBTUtils.h"

namespace Vuro {

/// One sub-descriptor of a compatibility descriptor entry:
/// subDescriptorType (8) subDescriptorLength (8) additionalInformation, the
/// information kept as an owned copy.
class TCompatibilityDescriptorSubItem {
public:
    TCompatibilityDescriptorSubItem();
    TCompatibilityDescriptorSubItem(const TCompatibilityDescriptorSubItem&) = delete;
    TCompatibilityDescriptorSubItem& operator=(const TCompatibilityDescriptorSubItem&) = delete;
    virtual ~TCompatibilityDescriptorSubItem();

    /// *parsedLength receives 2 + subDescriptorLength.
    static TCompatibilityDescriptorSubItem* parse(VURO_U8* data, VURO_U32 dataLength, VURO_U32* parsedLength,
                                                  VURO_U16* errorCode);
    static TCompatibilityDescriptorSubItem* parse(VURO_U8* data, VURO_U32 dataLength, VURO_U32* parsedLength,
                                                  VURO_U16* errorCode, const U8* limit);

    VURO_U8 getSubDescriptorType() const { return m_iSubDescriptorType; }
    VURO_U8 getAdditionalInformationLength() const { return m_iAdditionalInformationLength; }
    /// Null when the sub-descriptor carries none.
    VURO_U8* getAdditionalInformation() const { return m_iAdditionalInformation; }

private:
    VURO_U8 m_iSubDescriptorType;
    VURO_U8 m_iAdditionalInformationLength;
    VURO_U8* m_iAdditionalInformation;
};

} // namespace Vuro

#endif
