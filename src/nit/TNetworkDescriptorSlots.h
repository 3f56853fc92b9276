// Internal to the library (not installed): the eight descriptor slots that
// the network information table and each of its transport-stream entries
// keep, handled in one place for both owners.
#ifndef VURO_TNETWORK_DESCRIPTOR_SLOTS_H
#define VURO_TNETWORK_DESCRIPTOR_SLOTS_H

#include <list>
#include <type_traits>

#include "../descriptors/TEmergencyInformationDescriptor.h"
#include "../descriptors/TLinkageDescriptor.h"
#include "../descriptors/TNetworkNameDescriptor.h"
#include "../descriptors/TPartialReceptionDescriptor.h"
#include "../descriptors/TServiceListDescriptor.h"
#include "../descriptors/TSystemManagementDescriptor.h"
#include "../descriptors/TTSInformationDescriptor.h"
#include "../descriptors/TTerrestrialDeliverySystemDescriptor.h"

namespace Vuro {

// Owner has the members m_pNetworkNameDesc ... m_pTSInfoDesc and declares
// this class a friend.
template <class Owner>
class TNetworkDescriptorSlots {
public:
    // What a descriptor of the loop came to.
    enum Outcome {
        STORED,    // parsed into its slot
        FAILED,    // its parse failed; its code is in errorCode
        STUFFING,  // stuffing_descriptor (0x42), skipped
        UNKNOWN    // a tag these owners do not keep, skipped
    };

    // Parses the descriptor at data (length = descriptor_length + 2, lying
    // before limit) into the slot its tag selects; a later descriptor with
    // the same tag replaces the earlier one, which is freed.
    static Outcome parse(Owner& owner, U8* data, U32 length, U16* errorCode, const U8* limit)
    {
        Outcome outcome = data[0] == kStuffingTag ? STUFFING : UNKNOWN;
        forEach(owner, [&](auto*& slot) {
            using D = std::remove_pointer_t<std::remove_reference_t<decltype(slot)>>;
            if (data[0] == D::DESCRIPTOR_TAG)
                outcome = TISDBTDescriptor::parseInto(slot, data, length, errorCode, limit) ? STORED : FAILED;
        });
        return outcome;
    }

    static TISDBTDescriptor* get(const Owner& owner, U8 tag)
    {
        TISDBTDescriptor* found = nullptr;
        forEach(owner, [&](auto* slot) {
            if (slot && slot->getDescriptorTag() == tag)
                found = slot;
        });
        return found;
    }

    // Tags of the filled slots, in member order.
    static std::list<U8> tags(const Owner& owner)
    {
        std::list<U8> result;
        forEach(owner, [&](auto* slot) {
            if (slot)
                result.push_back(slot->getDescriptorTag());
        });
        return result;
    }

    // Deletes the descriptors in member order and empties the slots.
    static void release(Owner& owner)
    {
        forEach(owner, [](auto*& slot) {
            delete slot;
            slot = nullptr;
        });
    }

private:
    static constexpr U8 kStuffingTag = 0x42;

    // The slots in member order: 0x40, 0xFE, 0x41, 0x4A, 0xFA, 0xFC, 0xFB, 0xCD.
    template <class O, class Visit>
    static void forEach(O& owner, Visit visit)
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

} // namespace Vuro

#endif
