#ifndef VURO_TBOUQUET_NAME_DESCRIPTOR_H
#define VURO_TBOUQUET_NAME_DESCRIPTOR_H

#include <string>

#include "TISDBTDescriptor.h"

namespace Vuro {

/// bouquet_name_descriptor (0x47): the whole body is the bouquet name.
class TBouquetNameDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x47;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 1;

    TBouquetNameDescriptor(U8* data, U32 length);
    virtual ~TBouquetNameDescriptor();

    /// *parsedLength receives the name's byte count kept to 8 bits.
    static TBouquetNameDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TBouquetNameDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                         const U8* limit);

    std::string getBouquetName() const { return m_sBouquetName; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    std::string m_sBouquetName;
};

} // namespace Vuro

#endif
