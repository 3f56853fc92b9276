// Internal to the library (not installed): the eight descriptor slots that the
// network information table and each of its transport-stream entries keep.
#ifndef VURO_TNETWORK_DESCRIPTOR_SLOTS_H
#define VURO_TNETWORK_DESCRIPTOR_SLOTS_H

#include "../descriptors/TEmergencyInformationDescriptor.h"
#include "../descriptors/TISDBTDescriptorSlots.h"
#include "../descriptors/TLinkageDescriptor.h"
#include "../descriptors/TNetworkNameDescriptor.h"
#include "../descriptors/TPartialReceptionDescriptor.h"
#include "../descriptors/TServiceListDescriptor.h"
#include "../descriptors/TSystemManagementDescriptor.h"
#include "../descriptors/TTSInformationDescriptor.h"
#include "../descriptors/TTerrestrialDeliverySystemDescriptor.h"

namespace Vuro {

// Owners have the members m_pNetworkNameDesc ... m_pTSInfoDesc and declare this
// class a friend.
struct TNetworkDescriptorSlots {
    // The slots in member order: 0x40, 0xFE, 0x41, 0x4A, 0xFA, 0xFC, 0xFB, 0xCD.
    template <class Owner, class Visit>
    static void forEachSlot(Owner& owner, Visit visit)
    {
        visit(owner.m_pNetworkNameDesc);
        visit(owner.m_pSystemMngDesc);
        visit(owner.m_pServiceListDesc);
        visit(owner.m_pLinkageDesc);
        visit(owner.m_pTerDelSysDesc);
        visit(owner.m_pEmergencyInfoDesc);
        visit(owner.m_pPartialRecepDesc);
        visit(owner.m_pTSInfoDesc);
    }
};

using TNetworkSlots = TISDBTDescriptorSlots<TNetworkDescriptorSlots>;

} // namespace Vuro

#endif
