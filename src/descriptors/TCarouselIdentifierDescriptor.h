#ifndef VURO_TCAROUSEL_IDENTIFIER_DESCRIPTOR_H
#define VURO_TCAROUSEL_IDENTIFIER_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// carousel_identifier_descriptor (0x13): carousel_id (32), then everything to
/// the end of the descriptor kept as private data (an owned copy). The
/// FormatID-specific fields have getters but are never filled (see parseBody).
class TCarouselIdentifierDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x13;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 4;

    /// FormatID values.
    static constexpr VURO_U8 FORMAT_TYPE_NOT_AVAILABLE = 0;
    static constexpr VURO_U8 FORMAT_TYPE_SERVIC_GATEWAY = 1;

    TCarouselIdentifierDescriptor(U8* data, U32 length);
    virtual ~TCarouselIdentifierDescriptor();

    /// *parsedLength receives dataLength - 2.
    static TCarouselIdentifierDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                U16* errorCode);
    static TCarouselIdentifierDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                U16* errorCode, const U8* limit);

    U32 getCarouselID() const { return m_iCarouselID; }
    U8 getFormatID() const { return m_iFormatID; }
    U8 getModuleVersion() const { return m_iModuleVersion; }
    U16 getModuleID() const { return m_iModuleID; }
    U16 getBlockSize() const { return m_iBlockSize; }
    U32 getModuleSize() const { return m_iModuleSize; }
    U8 getCompressionMethod() const { return m_iCompressionMethod; }
    U32 getOriginalSize() const { return m_iOriginalSize; }
    U8 getTimeOut() const { return m_iTimeOut; }
    U8 getObjectKeyLength() const { return m_iObjectKeySize; }
    U8* getObjectKeyData() const { return m_pObjectKeyData; }
    /// Size kept in 8 bits; the data is null when the descriptor carries none.
    U8 getPrivateDataSize() const { return m_iPrivateDataSize; }
    U8* getPrivateData() const { return m_pPrivateData; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U32 m_iCarouselID;
    VURO_U8 m_iFormatID;
    VURO_U8 m_iModuleVersion;
    VURO_U16 m_iModuleID;
    VURO_U16 m_iBlockSize;
    VURO_U32 m_iModuleSize;
    VURO_U8 m_iCompressionMethod;
    VURO_U32 m_iOriginalSize;
    VURO_U8 m_iTimeOut;
    VURO_U8 m_iObjectKeySize;
    VURO_U8* m_pObjectKeyData;
    VURO_U8 m_iPrivateDataSize;
    VURO_U8* m_pPrivateData;
};

} // namespace Vuro

#endif
