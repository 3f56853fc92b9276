#ifndef VURO_TLOGO_TRANSMISSION_DESCRIPTOR_H
#define VURO_TLOGO_TRANSMISSION_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// logo_transmission_descriptor (0xCF): logo_transmission_type (8), then by
/// type: CDT scheme 1: reserved (7) logo_id (9) reserved (4) logo_version (12)
/// download_data_id (16); CDT scheme 2: reserved (7) logo_id (9); simple logo:
/// the logo characters to the end of the descriptor (an owned copy).
class TLogoTransmissionDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0xCF;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 1;

    /// logo_transmission_type values.
    static constexpr VURO_U8 TYPE_CDT1 = 1;
    static constexpr VURO_U8 TYPE_CDT2 = 2;
    static constexpr VURO_U8 TYPE_SIMPLE = 3;

    TLogoTransmissionDescriptor(U8* data, U32 length);
    virtual ~TLogoTransmissionDescriptor();

    /// *parsedLength receives 7 for TYPE_CDT1, 3 for TYPE_CDT2, dataLength - 2
    /// for TYPE_SIMPLE and 1 for any other type.
    static TLogoTransmissionDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TLogoTransmissionDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                              const U8* limit);

    U8 getLogoTransmissionType() const { return m_iLogoTransmType; }
    U16 getLogoID() const { return m_iLogoID; }
    U16 getLogoVersion() const { return m_iLogoVersion; }
    U16 getDownloadDataID() const { return m_iDownloadDataID; }
    /// Size kept in 8 bits; the data is null when the descriptor carries none.
    U8 getLogoDataLength() const { return m_iLogoDataLength; }
    U8* getLogoData() const { return m_pLogoData; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U8 m_iLogoTransmType;
    VURO_U16 m_iLogoID;
    VURO_U16 m_iLogoVersion;
    VURO_U16 m_iDownloadDataID;
    VURO_U8 m_iLogoDataLength;
    VURO_U8* m_pLogoData;
};

} // namespace Vuro

#endif
