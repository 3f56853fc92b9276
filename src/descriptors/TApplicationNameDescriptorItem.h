#ifndef VURO_TAPPLICATION_NAME_DESCRIPTOR_ITEM_H
#define VURO_TAPPLICATION_NAME_DESCRIPTOR_ITEM_H

#include <string>

#include "../utils/VuroISDBTUtils.h"

namespace Vuro {

/// One name of an application name descriptor: ISO_639_language_code (24),
/// application_name_length (8), application name.
class TApplicationNameDescriptorItem {
public:
    TApplicationNameDescriptorItem();
    TApplicationNameDescriptorItem(std::string languageCode, std::string name);
    virtual ~TApplicationNameDescriptorItem();

    /// Needs at least 4 bytes. *itemLength receives 3 + 1 + the name bytes,
    /// kept to 8 bits.
    static TApplicationNameDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode);
    static TApplicationNameDescriptorItem* parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode,
                                                 const U8* limit);

    std::string getLanguageCode() const { return m_sLanguageCode; }
    std::string getName() const { return m_sName; }

private:
    std::string m_sLanguageCode;
    std::string m_sName;
};

} // namespace Vuro

#endif
