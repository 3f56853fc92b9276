#ifndef VURO_TDATA_COMPONENT_DESCRIPTOR_H
#define VURO_TDATA_COMPONENT_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// data_component_descriptor (0xFD): data_component_id (16), then
/// additional_data_component_info to the end of the descriptor (an owned copy).
class TDataComponentDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0xFD;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 2;

    /// data_component_id values.
    static constexpr VURO_U16 COMPONENT_ID_GINGA_XML_BASE_MMEDIA_CODING = 0x0007;
    static constexpr VURO_U16 COMPONENT_ID_CAPTION_AND_SUPERIMPOSED = 0x0008;
    static constexpr VURO_U16 COMPONENT_ID_DATA_DOWNLOAD_SBTVD = 0x0009;
    static constexpr VURO_U16 COMPONENT_ID_OBJECT_CAROUSEL = 0x000C;
    static constexpr VURO_U16 COMPONENT_ID_CAPTION_1_SEG = 0x0012;
    static constexpr VURO_U16 COMPONENT_ID_GINGA_APP_EXECUTING_ENGINE = 0x00A0;
    static constexpr VURO_U16 COMPONENT_ID_GINGA_APP_INFORMATION_TABLE = 0x00A3;
    static constexpr VURO_U16 COMPONENT_ID_SBTVD_PROGRAM_INDEX_CONFIG = 0x00A4;

    TDataComponentDescriptor(U8* data, U32 length);
    virtual ~TDataComponentDescriptor();

    /// *parsedLength receives dataLength - 2.
    static TDataComponentDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TDataComponentDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                           const U8* limit);

    U16 getDataComponentID() const { return m_iDataComponentID; }
    /// Size kept in 8 bits; the data is null when the descriptor carries none.
    U8 getAdditionalDataSize() const { return m_iAdditionalDataSize; }
    U8* getAdditionalData() const { return m_pAdditionalData; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U16 m_iDataComponentID;
    VURO_U8 m_iAdditionalDataSize;
    VURO_U8* m_pAdditionalData;
};

} // namespace Vuro

#endif
