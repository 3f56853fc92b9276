// Internal to the library: the ten application descriptor slots that an AIT
// application and the AIT's common loop both keep, handled in one place.
#ifndef VURO_TAPPLICATION_DESCRIPTOR_SLOTS_H
#define VURO_TAPPLICATION_DESCRIPTOR_SLOTS_H

#include "../descriptors/TApplicationDescriptor.h"
#include "../descriptors/TApplicationIconDescriptor.h"
#include "../descriptors/TApplicationNameDescriptor.h"
#include "../descriptors/TDIILocationDescriptor.h"
#include "../descriptors/TExternalApplicationAuthorizationDescriptor.h"
#include "../descriptors/TGingaJavaApplicationDescriptor.h"
#include "../descriptors/TGingaJavaApplicationLocationDescriptor.h"
#include "../descriptors/TGingaNCLApplicationDescriptor.h"
#include "../descriptors/TGingaNCLApplicationLocationDescriptor.h"
#include "../descriptors/TIPSignalingDescriptor.h"
#include "../descriptors/TISDBTDescriptorSlots.h"
#include "../descriptors/TPrefetchDescriptor.h"
#include "../descriptors/TTransportProtocolDescriptor.h"

namespace Vuro {

// Owner declares this class a friend and has the members m_pApplicationDesc
// .. m_pGingaAppLocationDesc. Member order is the order of the tag list:
// 0x00, 0x01, 0x0B, 0x05, 0x02, 0x11, 0x0C, 0x0D, then the Ginga
// application descriptor and the Ginga location descriptor.
template <class Owner>
class TApplicationDescriptorSlots {
    // The eight slots whose class fixes the tag.
    struct Fixed {
        template <class Self, class Visit>
        static void forEachSlot(Self& owner, Visit visit)
        {
            forEachFixedSlot(owner, visit);
        }
    };
    using FixedSlots = TISDBTDescriptorSlots<Fixed>;
    using Slots = TISDBTDescriptorSlots<TApplicationDescriptorSlots<Owner>>;

public:
    using Outcome = typename FixedSlots::Outcome;

    static constexpr U8 GINGA_J_APPLICATION = TGingaJavaApplicationDescriptor::DESCRIPTOR_TAG;
    static constexpr U8 GINGA_J_LOCATION = TGingaJavaApplicationLocationDescriptor::DESCRIPTOR_TAG;
    static constexpr U8 GINGA_NCL_APPLICATION = TGingaNCLApplicationDescriptor::DESCRIPTOR_TAG;
    static constexpr U8 GINGA_NCL_LOCATION = TGingaNCLApplicationLocationDescriptor::DESCRIPTOR_TAG;

    // Every slot, in member order.
    template <class Self, class Visit>
    static void forEachSlot(Self& owner, Visit visit)
    {
        forEachFixedSlot(owner, visit);
        visit(owner.m_pGingaAppParamsDesc);
        visit(owner.m_pGingaAppLocationDesc);
    }

    // Parses the descriptor at data (length = descriptor_length + 2; its two
    // header bytes lie before limit) into the slot its tag selects: the eight
    // single-class kinds by their tag, 0x03 / 0x06 into the Ginga application
    // slot and 0x04 / 0x07 into the Ginga location slot, as their Java or NCL
    // class. The later of two descriptors for one slot wins it and the object
    // it displaces is freed.
    static Outcome parse(Owner& owner, U8* data, U32 length, U16* errorCode, const U8* limit)
    {
        switch (data[0]) {
        case GINGA_J_APPLICATION:
            return parseGinga<TGingaJavaApplicationDescriptor>(owner.m_pGingaAppParamsDesc, data, length, errorCode,
                                                               limit);
        case GINGA_NCL_APPLICATION:
            return parseGinga<TGingaNCLApplicationDescriptor>(owner.m_pGingaAppParamsDesc, data, length, errorCode,
                                                              limit);
        case GINGA_J_LOCATION:
            return parseGinga<TGingaJavaApplicationLocationDescriptor>(owner.m_pGingaAppLocationDesc, data, length,
                                                                       errorCode, limit);
        case GINGA_NCL_LOCATION:
            return parseGinga<TGingaNCLApplicationLocationDescriptor>(owner.m_pGingaAppLocationDesc, data, length,
                                                                      errorCode, limit);
        default:
            return FixedSlots::parse(owner, data, length, errorCode, limit);
        }
    }

    // The descriptor held for tag, or null (an empty Ginga slot, or one
    // holding the other form, included).
    static TISDBTDescriptor* get(const Owner& owner, U8 tag) { return Slots::get(owner, tag); }
    static std::list<U8> tags(const Owner& owner) { return Slots::tags(owner); }
    static void release(Owner& owner) { Slots::release(owner); }

private:
    template <class Self, class Visit>
    static void forEachFixedSlot(Self& owner, Visit visit)
    {
        visit(owner.m_pApplicationDesc);
        visit(owner.m_pApplicationNameDesc);
        visit(owner.m_pApplicationIconDesc);
        visit(owner.m_pExternalAppAuthDesc);
        visit(owner.m_pTransportProtocolDesc);
        visit(owner.m_pIPSignalingDesc);
        visit(owner.m_pPrefetchDesc);
        visit(owner.m_pDIILocationDesc);
    }

    template <class D, class Base>
    static Outcome parseGinga(Base*& slot, U8* data, U32 length, U16* errorCode, const U8* limit)
    {
        if (!fits(data, limit, length))
            return FixedSlots::PAST_BUFFER;
        D* parsed = D::parse(data, length, nullptr, errorCode, limit);
        if (!parsed)
            return FixedSlots::FAILED;
        delete slot;
        slot = parsed;
        return FixedSlots::STORED;
    }
};

} // namespace Vuro

#endif
