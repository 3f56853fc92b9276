#ifndef VURO_TSERVICE_DESCRIPTOR_H
#define VURO_TSERVICE_DESCRIPTOR_H

#include <string>

#include "TISDBTDescriptor.h"

namespace Vuro {

/// service_descriptor (0x48): service_type (8), then the service provider name
/// and the service name, each preceded by its 8-bit length.
class TServiceDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x48;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 3;

    /// service_type values.
    static constexpr VURO_U8 SERVICE_DIGITAL_TV = 0x01;
    static constexpr VURO_U8 SERVICE_DIGITAL_AUDIO = 0x02;
    static constexpr VURO_U8 SERVICE_TELETEXT = 0x03;
    static constexpr VURO_U8 SERVICE_NVOD_REFERENCE = 0x04;
    static constexpr VURO_U8 SERVICE_NVOD_TIME_SHIFTED = 0x05;
    static constexpr VURO_U8 SERVICE_MOSAIC = 0x06;
    static constexpr VURO_U8 SERVICE_ADVANCED_CODING_DIGITAL_RADIO = 0x0A;
    static constexpr VURO_U8 SERVICE_ADVANCED_CODING_MOSAIC = 0x0B;
    static constexpr VURO_U8 SERVICE_DATA_BROADCASTING = 0x0C;
    static constexpr VURO_U8 SERVICE_RESERVED_COMMON_INTERFACE = 0x0D;
    static constexpr VURO_U8 SERVICE_RCS_MAP = 0x0E;
    static constexpr VURO_U8 SERVICE_RCS_FLS = 0x0F;
    static constexpr VURO_U8 SERVICE_DVB_MHP = 0x10;
    static constexpr VURO_U8 SERVICE_DIGITAL_MPEG2_HD_TELEVISION = 0x11;
    static constexpr VURO_U8 SERVICE_ADVANCED_CODING_DIGITAL_SD_TV = 0x16;
    static constexpr VURO_U8 SERVICE_ADVANCED_CODING_DIGITAL_NVOD_SD_TIME_SHIFTED_TV = 0x17;
    static constexpr VURO_U8 SERVICE_ADVANCED_CODING_DIGITAL_NVOD_SD_REFERENCE_TV = 0x18;
    static constexpr VURO_U8 SERVICE_ADVANCED_CODING_DIGITAL_HD_TV = 0x19;
    static constexpr VURO_U8 SERVICE_ADVANCED_CODING_DIGITAL_NVOD_HD_TIME_SHIFTED_TV = 0x1A;
    static constexpr VURO_U8 SERVICE_ADVANCED_CODING_DIGITAL_NVOD_HD_REFERENCE_TV = 0x1B;
    static constexpr VURO_U8 SERVICE_SPECIAL_VIDEO = 0xA1;
    static constexpr VURO_U8 SERVICE_SPECIAL_AUDIO = 0xA2;
    static constexpr VURO_U8 SERVICE_SPECIAL_DATA = 0xA3;
    static constexpr VURO_U8 SERVICE_ENGINEERING = 0xA4;
    static constexpr VURO_U8 SERVICE_PROMOTIONAL_VIDEO = 0xA5;
    static constexpr VURO_U8 SERVICE_PROMOTIONAL_AUDIO = 0xA6;
    static constexpr VURO_U8 SERVICE_PROMOTIONAL_DATA = 0xA7;
    /// The constant has always been published under this spelling.
    static constexpr VURO_U8 SERVICE_DATA_SERVICE_FOR_ANTECIPATED_STORAGE = 0xA8;
    static constexpr VURO_U8 SERVICE_EXCLUSIVE_DATA_SERVICE_FOR_STORAGE = 0xA9;
    static constexpr VURO_U8 SERVICE_BOOKMARK_LIST = 0xAA;
    static constexpr VURO_U8 SERVICE_SIMULTANEOUS_SERVER_TYPE = 0xAB;
    static constexpr VURO_U8 SERVICE_INDEPENDENT_FILE_SERVICE = 0xAC;
    static constexpr VURO_U8 SERVICE_DATA = 0xC0;

    TServiceDescriptor(U8* data, U32 length);
    virtual ~TServiceDescriptor();

    /// *parsedLength receives the bytes of both names with their length
    /// bytes, kept to 8 bits.
    static TServiceDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TServiceDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                     const U8* limit);

    U8 getServiceType() const { return m_iServiceType; }
    std::string getServiceProviderName() const { return m_sServiceProviderName; }
    std::string getServiceName() const { return m_sServiceName; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);
    static BOOL failLength(U32 available, U32 needed, U16* errorCode);

    VURO_U8 m_iServiceType;
    std::string m_sServiceProviderName;
    std::string m_sServiceName;
};

} // namespace Vuro

#endif
