#ifndef VURO_TAPPLICATION_DESCRIPTOR_H
#define VURO_TAPPLICATION_DESCRIPTOR_H

#include <list>

#include "../TISDBTItemMap.h"
#include "TApplicationDescriptorProfile.h"
#include "TISDBTDescriptor.h"

namespace Vuro {

/// application_descriptor (0x00) of the application signalling:
/// application_profiles_length (8) and the 5-byte profiles,
/// service_bound_flag (1), visibility (2), reserved (5),
/// application_priority (8), then one transport_protocol_label (8) per
/// remaining byte.
class TApplicationDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x00;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 3;

    TApplicationDescriptor(U8* data, U32 length);
    /// A deep copy (profiles and labels), without raw bytes.
    explicit TApplicationDescriptor(TApplicationDescriptor* source);
    virtual ~TApplicationDescriptor();

    /// *parsedLength receives the body length (dataLength - 2) kept to 8 bits.
    static TApplicationDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TApplicationDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                         const U8* limit);

    U32 getProfilesCount() const { return m_pProfiles.size(); }
    TApplicationDescriptorProfile* getProfile(U16 profile) const { return m_pProfiles.get(profile); }
    /// Ascending.
    std::list<U16> getProfiles() const { return m_pProfiles.keys(); }
    /// Stores under the profile number; a profile already there is displaced
    /// and not deleted. A null profile is ignored.
    void addProfile(TApplicationDescriptorProfile* profile);
    BOOL removeProfile(U16 profile) { return m_pProfiles.remove(profile); }

    BOOL isServiceBound() const { return m_bServiceBoundFlag; }
    U8 getVisibility() const { return m_iVisibility; }
    /// The published spellings of these two getters.
    BOOL isVisibileForUsers() const { return m_bVisibilityUsers; }
    BOOL isVisibileForApplications() const { return m_bVisibilityApps; }
    U8 getApplicationPriority() const { return m_iApplicationPriority; }
    U8 getTransportProtocolsCount() const { return m_iTransportProtSize; }
    /// The descriptor's own array (null when there are no labels), not a copy.
    U8* getTransportProtocols() const { return m_pTransportProts; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    TISDBTItemMap<U16, TApplicationDescriptorProfile> m_pProfiles;
    VURO_BOOL m_bServiceBoundFlag;
    VURO_U8 m_iVisibility;
    VURO_U8 m_iApplicationPriority;
    VURO_BOOL m_bVisibilityUsers;
    VURO_BOOL m_bVisibilityApps;
    VURO_U8 m_iTransportProtSize;
    VURO_U8* m_pTransportProts;
};

} // namespace Vuro

#endif
