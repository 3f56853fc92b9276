#ifndef VURO_TAPPLICATION_DESCRIPTOR_PROFILE_H
#define VURO_TAPPLICATION_DESCRIPTOR_PROFILE_H

#include "../utils/VuroISDBTUtils.h"

namespace Vuro {

/// One profile of an application descriptor (5 bytes): application_profile
/// (16), version.major (8), version.minor (8), version.micro (8).
class TApplicationDescriptorProfile {
public:
    TApplicationDescriptorProfile();
    virtual ~TApplicationDescriptorProfile();

    /// Needs more than 4 bytes; reports 5.
    static TApplicationDescriptorProfile* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TApplicationDescriptorProfile* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                                const U8* limit);

    U16 getApplicationProfile() const { return m_iApplicationProfile; }
    U8 getVersionMajor() const { return m_iVersionMajor; }
    U8 getVersionMinor() const { return m_iVersionMinor; }
    U8 getVersionMicro() const { return m_iVersionMicro; }

private:
    VURO_U16 m_iApplicationProfile;
    VURO_U8 m_iVersionMajor;
    VURO_U8 m_iVersionMinor;
    VURO_U8 m_iVersionMicro;
};

} // namespace Vuro

#endif
