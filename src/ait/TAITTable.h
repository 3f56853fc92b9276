#ifndef VURO_TAIT_TABLE_H
#define VURO_TAIT_TABLE_H

#include <list>
#include <string>

#include "../TISDBTItemMap.h"
#include "../TISDBTVersionedTable.h"
#include "TApplication.h"

namespace Vuro {

/// application_information_section (table_id 0x74, on a PID the PMT names):
/// the application type (table_id_extension), common descriptors that apply
/// to every application, then the applications keyed by their hash id.
class TAITTable : public TISDBTVersionedTable {
    friend class TISDBTTable;

public:
    static constexpr VURO_U32 MINIMUM_DATA_LENGTH = 4;

    TAITTable(U8* sectionData, U32 dataLength);
    virtual ~TAITTable();

    /// Note the flag order: parseDescriptors (no effect: descriptors are always
    /// parsed), then checkCRC32 (never verified). The body is read from the
    /// table's own copy, so every descriptor lives as long as the table. Each
    /// application is linked to the table and takes the table's application
    /// type, whatever its Ginga descriptors said.
    static TAITTable* parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, BOOL checkCRC32,
                            U16* errorCode, TAITTable* previous);

    /// TYPE_JAVA or TYPE_NCL of TApplication, as broadcast.
    U16 getApplicationType() const { return m_iGenericDataField; }

    /// Common descriptors, by tag as for TApplication::getDescriptor.
    TISDBTDescriptor* getDescriptor(U8 tag) const override;
    std::list<U8> getDescriptorTags() const override;

    TApplicationDescriptor* getApplicationDescriptor() const { return m_pApplicationDesc; }
    TApplicationNameDescriptor* getApplicationNameDescriptor() const { return m_pApplicationNameDesc; }
    TApplicationIconDescriptor* getApplicationIconDescriptor() const { return m_pApplicationIconDesc; }
    TExternalApplicationAuthorizationDescriptor* getExternalApplicationAuthorizationDescriptor() const
    {
        return m_pExternalAppAuthDesc;
    }
    TTransportProtocolDescriptor* getTransportProtocolDescriptor() const { return m_pTransportProtocolDesc; }
    TIPSignalingDescriptor* getIPSignalingDescriptor() const { return m_pIPSignalingDesc; }
    TPrefetchDescriptor* getPrefetchDescriptor() const { return m_pPrefetchDesc; }
    TDIILocationDescriptor* getDIILocationDescriptor() const { return m_pDIILocationDesc; }
    TGingaApplicationDescriptor* getGingaApplicationDescriptor() const { return m_pGingaAppParamsDesc; }
    TGingaApplicationLocationDescriptor* getGingaApplicationLocationDescriptor() const
    {
        return m_pGingaAppLocationDesc;
    }

    U32 getApplicationsCount() const { return m_pApplications.size(); }
    /// Stores under the application's hash id and takes ownership; an
    /// application already there is displaced and not deleted. A null
    /// application is ignored.
    void addApplication(TApplication* application);
    TApplication* getApplication(std::string hashId) const { return m_pApplications.get(hashId); }
    /// Ascending byte order.
    std::list<std::string> getApplicationsIDs() const { return m_pApplications.keys(); }
    BOOL removeApplication(std::string hashId) { return m_pApplications.remove(hashId); }

private:
    friend class TApplicationDescriptorSlots<TAITTable>;

    BodyResult parseBody(U8* sectionData, U32 dataLength, U16 bodyLength, BOOL parseDescriptors, U16* errorCode);
    BodyResult rejectLength(U32 length, U32 available, U16* errorCode);

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
    TISDBTItemMap<std::string, TApplication> m_pApplications;
};

} // namespace Vuro

#endif
