#ifndef VURO_TDOWNLOAD_CONTENT_DESCRIPTOR_ITEM_H
#define VURO_TDOWNLOAD_CONTENT_DESCRIPTOR_ITEM_H

#include "../utils/VuroISDBTUtils.h"

namespace Vuro {

/// One module of a download content descriptor: module_id (16)
/// module_size (32) module_info_length (8) module_info, the info kept as an
/// owned copy.
class TDownloadContentDescriptorItem {
public:
    TDownloadContentDescriptorItem();
    TDownloadContentDescriptorItem(const TDownloadContentDescriptorItem&) = delete;
    TDownloadContentDescriptorItem& operator=(const TDownloadContentDescriptorItem&) = delete;
    virtual ~TDownloadContentDescriptorItem();

    /// *parsedLength receives 7 + module_info_length.
    static TDownloadContentDescriptorItem* parse(VURO_U8* data, VURO_U32 dataLength, VURO_U32* parsedLength,
                                                 VURO_U16* errorCode);
    static TDownloadContentDescriptorItem* parse(VURO_U8* data, VURO_U32 dataLength, VURO_U32* parsedLength,
                                                 VURO_U16* errorCode, const U8* limit);

    VURO_U16 getModuleID() const { return m_iModuleID; }
    VURO_U32 getModuleSize() const { return m_iModuleSize; }
    VURO_U8 getModuleInfoLength() const { return m_iModuleInfoLength; }
    /// Null when the module carries none.
    VURO_U8* getModuleInfo() const { return m_iModuleInfo; }

private:
    VURO_U16 m_iModuleID;
    VURO_U32 m_iModuleSize;
    VURO_U8 m_iModuleInfoLength;
    VURO_U8* m_iModuleInfo;
};

} // namespace Vuro

#endif
