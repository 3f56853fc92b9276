#ifndef VURO_TAPPLICATION_H
#define VURO_TAPPLICATION_H

#include <list>
#include <string>

#include "../TISDBTDataHolder.h"
#include "../descriptors/TApplicationDescriptor.h"
#include "../descriptors/TApplicationIconDescriptor.h"
#include "../descriptors/TApplicationNameDescriptor.h"
#include "../descriptors/TDIILocationDescriptor.h"
#include "../descriptors/TExternalApplicationAuthorizationDescriptor.h"
#include "../descriptors/TGingaApplicationDescriptor.h"
#include "../descriptors/TGingaApplicationLocationDescriptor.h"
#include "../descriptors/TIPSignalingDescriptor.h"
#include "../descriptors/TPrefetchDescriptor.h"
#include "../descriptors/TTransportProtocolDescriptor.h"
#include "TApplicationIdentifier.h"

namespace Vuro {

class TAITTable;
template <class Owner>
class TApplicationDescriptorSlots;

/// One application of an AIT section: application_identifier (48),
/// application_control_code (8), reserved (4),
/// application_descriptors_loop_length (12), descriptors. One descriptor per
/// kind; a kind the application lacks can be taken from its table's common
/// loop through the inheriting getters.
class TApplication : public TISDBTDataHolder {
public:
    /// Application types (the AIT's table_id_extension).
    static constexpr VURO_U16 TYPE_JAVA = 1;
    static constexpr VURO_U16 TYPE_NCL = 9;
    /// application_control_code values; the code is stored as read.
    static constexpr VURO_U8 CONTROLCODE_AUTOSTART = 1;
    static constexpr VURO_U8 CONTROLCODE_PRESENT = 2;
    static constexpr VURO_U8 CONTROLCODE_DESTROY = 3;
    static constexpr VURO_U8 CONTROLCODE_KILL = 4;
    static constexpr VURO_U8 CONTROLCODE_REMOTE = 6;
    static constexpr VURO_U8 CONTROLCODE_UNBOUND = 7;

    /// Keeps a copy of the length bytes at data.
    TApplication(U8* data, U32 length);
    /// A deep copy: raw bytes, hash id, control code, type, identifier and a
    /// copy of each descriptor the source's getters return with inherit (so
    /// with inherit TRUE the table's common descriptors the source inherits
    /// become the copy's own). The copy has no parent table.
    TApplication(TApplication* source, BOOL inherit);
    virtual ~TApplication();

    /// dataLength is what remains of the section, not of the application.
    /// Descriptors are always parsed (parseDescriptors is handed on to the
    /// identifier and otherwise unused); they borrow sectionData. A Ginga
    /// descriptor sets the type (0x03 / 0x04 Java, 0x06 / 0x07 NCL). Stuffing
    /// is skipped silently, other tags with a line. On success *itemLength
    /// receives the bytes of the entry.
    static TApplication* parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, U32* itemLength,
                               U16* errorCode);
    /// Same, reading nothing at or beyond limit (the end of the section).
    static TApplication* parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, U32* itemLength,
                               U16* errorCode, const U8* limit);

    /// Not owned; null until set.
    void setParentAITTable(TAITTable* parent) { m_pParentAITTable = parent; }
    void setApplicationType(U16 type) { m_iApplicationType = type; }

    std::string getHashID() const { return m_sHashId; }
    TApplicationIdentifier* getApplicationIdentifier() const { return m_pAppIdentifier; }
    U8 getControlCode() const { return m_iControlCode; }
    U16 getApplicationType() const { return m_iApplicationType; }

    /// The application's own descriptor for 0x00, 0x01, 0x02, 0x05, 0x0B,
    /// 0x0C, 0x0D, 0x11; for 0x03 / 0x06 (0x04 / 0x07) the Ginga application
    /// (location) descriptor when it carries that tag. Null otherwise.
    TISDBTDescriptor* getDescriptor(U8 tag) const;
    /// Tags of the own descriptors: 0x00, 0x01, 0x0B, 0x05, 0x02, 0x11, 0x0C,
    /// 0x0D, then the Ginga application and location descriptors' tags.
    std::list<U8> getDescriptorTags() const;

    /// With inherit set, an application lacking the descriptor asks its parent
    /// table (when linked) for the common one; one found there sets *inherited
    /// (when given) to TRUE. *inherited is never set to FALSE: the caller
    /// initialises it.
    TApplicationDescriptor* getApplicationDescriptor(BOOL inherit, BOOL* inherited) const;
    TApplicationNameDescriptor* getApplicationNameDescriptor(BOOL inherit, BOOL* inherited) const;
    TApplicationIconDescriptor* getApplicationIconDescriptor(BOOL inherit, BOOL* inherited) const;
    TExternalApplicationAuthorizationDescriptor* getExternalApplicationAuthorizationDescriptor(BOOL inherit,
                                                                                             BOOL* inherited) const;
    TTransportProtocolDescriptor* getTransportProtocolDescriptor(BOOL inherit, BOOL* inherited) const;
    TIPSignalingDescriptor* getIPSignalingDescriptor(BOOL inherit, BOOL* inherited) const;
    TPrefetchDescriptor* getPrefetchDescriptor(BOOL inherit, BOOL* inherited) const;
    TDIILocationDescriptor* getDIILocationDescriptor(BOOL inherit, BOOL* inherited) const;
    TGingaApplicationDescriptor* getGingaApplicationDescriptor(BOOL inherit, BOOL* inherited) const;
    TGingaApplicationLocationDescriptor* getGingaApplicationLocationDescriptor(BOOL inherit, BOOL* inherited) const;

private:
    friend class TApplicationDescriptorSlots<TApplication>;

    template <class D>
    D* inheritable(D* own, D* (TAITTable::*parentGetter)() const, BOOL inherit, BOOL* inherited) const;
    static TApplication* rejectLength(TApplication* application, U32 length, U32 available, U16* errorCode);

    TAITTable* m_pParentAITTable;
    std::string m_sHashId;
    VURO_U8 m_iControlCode;
    VURO_U16 m_iApplicationType;
    TApplicationIdentifier* m_pAppIdentifier;
    TApplicationDescriptor* m_pApplicationDesc = nullptr;
    TApplicationNameDescriptor* m_pApplicationNameDesc = nullptr;
    TApplicationIconDescriptor* m_pApplicationIconDesc = nullptr;
    TExternalApplicationAuthorizationDescriptor* m_pExternalAppAuthDesc = nullptr;
    TTransportProtocolDescriptor* m_pTransportProtocolDesc = nullptr;
    TIPSignalingDescriptor* m_pIPSignalingDesc = nullptr;
    TPrefetchDescriptor* m_pPrefetchDesc = nullptr;
    TDIILocationDescriptor* m_pDIILocationDesc = nullptr;
    TGingaApplicationDescriptor* m_pGingaAppParamsDesc = nullptr;
    TGingaApplicationLocationDescriptor* m_pGingaAppLocationDesc = nullptr;
};

} // namespace Vuro

#endif
