// Internal to the library (not installed): the 23 descriptor slots that the
// program map table keeps at programme level and each of its elementary-stream
// entries keeps for its ES_info loop, handled in one place for both owners.
#ifndef VURO_TSTREAM_DESCRIPTOR_SLOTS_H
#define VURO_TSTREAM_DESCRIPTOR_SLOTS_H

#include <array>
#include <list>
#include <type_traits>

#include "../descriptors/TAACDescriptor.h"
#include "../descriptors/TAVCTimingAndHRDDescriptor.h"
#include "../descriptors/TAVCVideoDescriptor.h"
#include "../descriptors/TCAIdentifierDescriptor.h"
#include "../descriptors/TCarouselCompatibleCompositeDescriptor.h"
#include "../descriptors/TCarouselIdentifierDescriptor.h"
#include "../descriptors/TComponentDescriptor.h"
#include "../descriptors/TConditionalPlaybackDescriptor.h"
#include "../descriptors/TContentAvailabilityDescriptor.h"
#include "../descriptors/TCopyrightDescriptor.h"
#include "../descriptors/TCountryAvailabilityDescriptor.h"
#include "../descriptors/TDataComponentDescriptor.h"
#include "../descriptors/TDigitalCopyControlDescriptor.h"
#include "../descriptors/TEmergencyInformationDescriptor.h"
#include "../descriptors/THierarchicalTransmissionDescriptor.h"
#include "../descriptors/TISDBTDescriptorSlots.h"
#include "../descriptors/TISO639LanguageDescriptor.h"
#include "../descriptors/TLinkageDescriptor.h"
#include "../descriptors/TMosaicDescriptor.h"
#include "../descriptors/TParentalRatingDescriptor.h"
#include "../descriptors/TStreamIdentifierDescriptor.h"
#include "../descriptors/TSystemManagementDescriptor.h"
#include "../descriptors/TTargetRegionDescriptor.h"
#include "../descriptors/TVideoDecodeControlDescriptor.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

// Owner has the members m_pCAIdentifierDesc ... m_pISO639LanguageDescriptor
// and m_iFilledSlots (a U32 starting at 0), and declares this class a friend.
template <class Owner>
class TStreamDescriptorSlots {
public:
    // The slots in member order: 0x53, 0x0D, 0x49, 0x4A, 0x50, 0x51, 0x52,
    // 0x55, 0xC0, 0xC1, 0xFC, 0xFD, 0xFE, 0xC6, 0xC8, 0xDE, 0xF7, 0xF8, 0x28,
    // 0x2A, 0x7C, 0x13, 0x0A.
    template <class O, class Visit>
    static void forEachSlot(O& owner, Visit visit)
    {
        visit(owner.m_pCAIdentifierDesc);
        visit(owner.m_pCopyrightDesc);
        visit(owner.m_pCountryAvailabilityDesc);
        visit(owner.m_pLinkageDesc);
        visit(owner.m_pComponentDesc);
        visit(owner.m_pMosaicDesc);
        visit(owner.m_pStreamIdentifierDesc);
        visit(owner.m_pParentalRatingDesc);
        visit(owner.m_pHierarchicalTransmDesc);
        visit(owner.m_pDigitalCopyControlDesc);
        visit(owner.m_pEmergencyInfoDesc);
        visit(owner.m_pDataComponentDesc);
        visit(owner.m_pSystemMngDesc);
        visit(owner.m_pTargetRegionDesc);
        visit(owner.m_pVideoDecodeControlDesc);
        visit(owner.m_pContentAvailabilityDesc);
        visit(owner.m_pCarouselCompCompoDesc);
        visit(owner.m_pConditionalPlaybackDesc);
        visit(owner.m_pAVCVideoDescriptor);
        visit(owner.m_pAVCTimingAndHRDDesc);
        visit(owner.m_pAACDesc);
        visit(owner.m_pCarouselIdentDesc);
        visit(owner.m_pISO639LanguageDescriptor);
    }

    // What a descriptor of the loop came to.
    enum Outcome {
        STORED,  // parsed into its slot (or, see LanguageCheck, a failed language emptied it)
        FAILED,  // its parse failed; its code is in errorCode
        UNKNOWN  // a tag these owners do not keep
    };

    // The programme loop fails on a malformed ISO 639 language descriptor like
    // on any other; an ES_info loop stores the failed result (null) in the slot
    // and goes on, so that one bad language code does not cost the stream.
    enum LanguageCheck { CHECK_LANGUAGE, LANGUAGE_UNCHECKED };

    // TRUE for the 23 tags these owners keep.
    static BOOL knows(const Owner& owner, U8 tag) { return Slots::keeps(owner, tag); }

    // One descriptor of an ES_info or program_info loop at position. Its
    // descriptor_length is held against bound, the owner's own (unsigned)
    // limit for it; past the bound, or where the buffer ends inside the
    // header or inside a descriptor that has to be read, reject(length,
    // available) logs the owner's length line and stores its code, and the
    // step fails. An empty descriptor and a tag the owners do not keep are
    // skipped unread: skipping needs no byte of the body, so such a
    // descriptor may claim more than the buffer holds. For a known one
    // announce(tag) runs first; it must then lie before limit, and is parsed
    // into its slot; a failed parse fails the step with the descriptor's code.
    // On success total receives descriptor_length + 2 and position steps
    // past the descriptor (stopping at limit, where the next read fails).
    template <class Reject, class Announce>
    static BOOL parseNext(Owner& owner, U8*& position, const U8* limit, U32 bound, LanguageCheck check,
                          U16* errorCode, U32& total, Reject reject, Announce announce)
    {
        const U32 header = TISDBTDescriptor::COMMON_HEADER_LENGTH;
        if (!fits(position, limit, header))
            return reject(header, bytesLeft(position, limit));
        const U8 tag = position[0];
        const U32 length = position[1];
        if (length > bound)
            return reject(length, bound);
        total = length + header;
        if (length != 0 && knows(owner, tag)) {
            announce(tag);
            if (!fits(position, limit, total))
                return reject(length, bytesLeft(position, limit) - header);
            if (parse(owner, position, total, errorCode, limit, check) == FAILED)
                return FALSE;
        }
        stepWithin(position, limit, total);
        return TRUE;
    }

    // Parses the descriptor at data (length = descriptor_length + 2, lying
    // before limit) into the slot its tag selects; a later descriptor with the
    // same tag replaces the earlier one, which is freed.
    static Outcome parse(Owner& owner, U8* data, U32 length, U16* errorCode, const U8* limit, LanguageCheck check)
    {
        switch (Slots::parse(owner, data, length, errorCode, limit)) {
        case Slots::STORED:
            owner.m_iFilledSlots |= kSlotBits[data[0]];
            return STORED;
        case Slots::FAILED:
        case Slots::PAST_BUFFER:
            if (data[0] == TISO639LanguageDescriptor::DESCRIPTOR_TAG && check == LANGUAGE_UNCHECKED) {
                destroy(owner.m_pISO639LanguageDescriptor); // the failed (null) result takes the slot
                return STORED;
            }
            return FAILED;
        case Slots::STUFFING:
        case Slots::UNKNOWN:
            break;
        }
        return UNKNOWN;
    }

    // The descriptor kept for tag, or null. Content availability (0xDE) is
    // never answered here although it has a slot: its typed getter is the only
    // way to reach it. Receivers rely on that omission, so it stays.
    static TISDBTDescriptor* get(const Owner& owner, U8 tag)
    {
        return tag == TContentAvailabilityDescriptor::DESCRIPTOR_TAG ? nullptr : Slots::get(owner, tag);
    }

    // Tags of the filled slots in member order, without 0xDE (as get).
    static std::list<U8> tags(const Owner& owner)
    {
        std::list<U8> result = Slots::tags(owner);
        result.remove(TContentAvailabilityDescriptor::DESCRIPTOR_TAG);
        return result;
    }

    // Deletes the descriptors and empties the slots: member order, except that
    // the stream identifier goes right after the emergency information.
    // Only the slots a parse has filled (m_iFilledSlots, one bit per slot in
    // member order) are looked at: most of the 23 are empty in every entry.
    static void release(Owner& owner)
    {
        const U32 filled = owner.m_iFilledSlots;
        owner.m_iFilledSlots = 0;
        if (filled == 0)
            return;
        forEachSlot(owner, [filled, &owner](auto*& slot) {
            using D = std::remove_pointer_t<std::remove_reference_t<decltype(slot)>>;
            if (std::is_same<D, TStreamIdentifierDescriptor>::value)
                return;
            static_assert(bitOf(D::DESCRIPTOR_TAG) != 0, "every slot's tag has its bit");
            if (filled & bitOf(D::DESCRIPTOR_TAG))
                destroy(slot);
            if (std::is_same<D, TEmergencyInformationDescriptor>::value &&
                (filled & bitOf(TStreamIdentifierDescriptor::DESCRIPTOR_TAG)) != 0)
                destroy(owner.m_pStreamIdentifierDesc);
        });
    }

private:
    using Slots = TISDBTDescriptorSlots<TStreamDescriptorSlots>;

    // The bit of a slot's tag in m_iFilledSlots: its place in member order.
    static constexpr U32 bitOf(U8 tag)
    {
        constexpr U8 kTags[] = {0x53, 0x0D, 0x49, 0x4A, 0x50, 0x51, 0x52, 0x55, 0xC0, 0xC1, 0xFC, 0xFD,
                                0xFE, 0xC6, 0xC8, 0xDE, 0xF7, 0xF8, 0x28, 0x2A, 0x7C, 0x13, 0x0A};
        for (U32 i = 0; i < sizeof(kTags); ++i)
            if (kTags[i] == tag)
                return 1u << i;
        return 0;
    }

    static constexpr std::array<U32, 256> slotBitTable()
    {
        std::array<U32, 256> bits{};
        for (U32 tag = 0; tag < 256; ++tag)
            bits[tag] = bitOf(static_cast<U8>(tag));
        return bits;
    }
    static constexpr std::array<U32, 256> kSlotBits = slotBitTable();

    template <class D>
    static void destroy(D*& slot)
    {
        delete slot;
        slot = nullptr;
    }

};

} // namespace Vuro

#endif
