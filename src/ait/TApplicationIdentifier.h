#ifndef VURO_TAPPLICATION_IDENTIFIER_H
#define VURO_TAPPLICATION_IDENTIFIER_H

#include <cstdint>
#include <string>

#include "../utils/VuroISDBTUtils.h"

namespace Vuro {

/// application_identifier (6 bytes): organisation_id (32), application_id
/// (16). The application id is kept 64 bits wide and formatted so in the hash
/// id.
class TApplicationIdentifier {
public:
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 6;

    TApplicationIdentifier();
    TApplicationIdentifier(U32 organizationId, std::uint64_t applicationId);
    explicit TApplicationIdentifier(TApplicationIdentifier* source);
    virtual ~TApplicationIdentifier();

    /// Needs at least 6 bytes; reports 6. parseDescriptors is not used.
    static TApplicationIdentifier* parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, U32* itemLength,
                                         U16* errorCode);
    static TApplicationIdentifier* parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, U32* itemLength,
                                         U16* errorCode, const U8* limit);

    U32 getOrganizationID() const { return m_iOrganizationID; }
    std::uint64_t getApplicationID() const { return m_iApplicationID; }

    /// The key of applications and authorisations: "%08X%llX", eight
    /// upper-case hex digits of the organisation then the application id in
    /// upper-case hex without padding (0x10 / 0x0001 -> "000000101").
    static std::string calculateHashID(U32 organizationId, std::uint64_t applicationId);
    static std::string calculateHashID(TApplicationIdentifier* appIdentifier);

private:
    VURO_U32 m_iOrganizationID;
    std::uint64_t m_iApplicationID;
};

} // namespace Vuro

#endif
