// Internal to the library: the descriptor slots of an owner that keeps at most
// one descriptor of each kind (a table or a loop entry), handled in one place
// for every such owner.
#ifndef VURO_TISDBT_DESCRIPTOR_SLOTS_H
#define VURO_TISDBT_DESCRIPTOR_SLOTS_H

#include <array>
#include <cstddef>
#include <list>
#include <type_traits>

#include "../utils/VuroParseSupport.h"
#include "TISDBTDescriptor.h"

namespace Vuro {

// SlotList names the slots: it provides
//   template <class Owner, class Visit> static void forEachSlot(Owner& owner, Visit visit)
// calling visit(owner.m_pXxxDesc) for every slot in member order, and can
// reach the owner's members (the owner declares it, or this class, a friend).
template <class SlotList>
class TISDBTDescriptorSlots {
public:
    // What a descriptor of a loop came to.
    enum Outcome {
        STORED,      // parsed into its slot
        FAILED,      // its parse failed; its code is in errorCode
        PAST_BUFFER, // a kept tag whose descriptor would end past limit: not parsed
        STUFFING,    // stuffing_descriptor (0x42), skipped
        UNKNOWN      // a tag the owner does not keep, skipped
    };

    // Parses the descriptor at data (length = descriptor_length + 2; its two
    // header bytes lie before limit) into the slot its tag selects. The later
    // of two descriptors with one tag wins the slot and the earlier object is
    // freed.
    template <class Owner>
    static Outcome parse(Owner& owner, U8* data, U32 length, U16* errorCode, const U8* limit)
    {
        // The slot of the tag, found in one look-up.
        const SlotEntry& entry = slotTable(owner)[data[0]];
        if (entry.parse) {
            if (!fits(data, limit, length))
                return PAST_BUFFER;
            return entry.parse(reinterpret_cast<char*>(&owner) + entry.offset, data, length, errorCode, limit)
                       ? STORED
                       : FAILED;
        }
        Outcome outcome = data[0] == kStuffingTag ? STUFFING : UNKNOWN;
        if (entry.offset == kNotKept)
            return outcome;
        // A tag several slots take (a base-class slot, or one tag twice):
        // every slot is offered the descriptor, in member order.
        SlotList::forEachSlot(owner, [&](auto*& slot) {
            using D = std::remove_pointer_t<std::remove_reference_t<decltype(slot)>>;
            if (data[0] != D::DESCRIPTOR_TAG)
                return;
            if (!fits(data, limit, length))
                outcome = PAST_BUFFER;
            else
                outcome = TISDBTDescriptor::parseInto(slot, data, length, errorCode, limit) ? STORED : FAILED;
        });
        return outcome;
    }

    // TRUE when one of the owner's slots takes descriptors with tag.
    template <class Owner>
    static BOOL keeps(const Owner& owner, U8 tag)
    {
        return keptTags(owner)[tag];
    }

    // The descriptor held for tag, or null.
    template <class Owner>
    static TISDBTDescriptor* get(const Owner& owner, U8 tag)
    {
        if (!keeps(owner, tag))
            return nullptr;
        TISDBTDescriptor* found = nullptr;
        SlotList::forEachSlot(owner, [&](auto* slot) {
            if (slot && slot->getDescriptorTag() == tag)
                found = slot;
        });
        return found;
    }

    // Tags of the filled slots, in member order.
    template <class Owner>
    static std::list<U8> tags(const Owner& owner)
    {
        std::list<U8> result;
        SlotList::forEachSlot(owner, [&](auto* slot) {
            if (slot)
                result.push_back(slot->getDescriptorTag());
        });
        return result;
    }

    // Deletes the descriptors in member order and empties the slots.
    template <class Owner>
    static void release(Owner& owner)
    {
        SlotList::forEachSlot(owner, [](auto*& slot) {
            delete slot;
            slot = nullptr;
        });
    }

private:
    static constexpr U8 kStuffingTag = 0x42;

    // Whether a slot's class fixes its tag (a base class held for several
    // tags does not).
    template <class D, class = void>
    struct HasFixedTag : std::false_type {
    };
    template <class D>
    struct HasFixedTag<D, std::void_t<decltype(D::DESCRIPTOR_TAG)>> : std::true_type {
    };

    // Per tag: the one slot that takes it, as its offset in the owner and the
    // parse of its class; parse is null for a tag no slot takes (offset
    // kNotKept) and for one that has to be offered to every slot (kWalk).
    using SlotParse = BOOL (*)(void* slot, U8* data, U32 length, U16* errorCode, const U8* limit);
    struct SlotEntry {
        std::ptrdiff_t offset;
        SlotParse parse;
    };
    static constexpr std::ptrdiff_t kNotKept = 0;
    static constexpr std::ptrdiff_t kWalk = -1;

    template <class D>
    static BOOL parseSlot(void* slot, U8* data, U32 length, U16* errorCode, const U8* limit)
    {
        return TISDBTDescriptor::parseInto(*static_cast<D**>(slot), data, length, errorCode, limit);
    }

    template <class Owner>
    static const std::array<SlotEntry, 256>& slotTable(const Owner& owner)
    {
        static const std::array<SlotEntry, 256> table = [&owner] {
            std::array<SlotEntry, 256> result{};
            bool everyTag = false;
            SlotList::forEachSlot(owner, [&](const auto& slot) {
                using D = std::remove_pointer_t<std::remove_cv_t<std::remove_reference_t<decltype(slot)>>>;
                if constexpr (HasFixedTag<D>::value) {
                    SlotEntry& entry = result[D::DESCRIPTOR_TAG];
                    if (entry.parse || entry.offset == kWalk) {
                        entry = SlotEntry{kWalk, nullptr};
                    } else {
                        entry.offset = reinterpret_cast<const char*>(&slot) - reinterpret_cast<const char*>(&owner);
                        entry.parse = &parseSlot<D>;
                    }
                } else {
                    everyTag = true;
                }
            });
            if (everyTag)
                result.fill(SlotEntry{kWalk, nullptr});
            return result;
        }();
        return table;
    }

    // Per tag: TRUE when a slot takes it. Built once from the slot types, so
    // that a descriptor the owner does not keep costs one look-up rather than
    // a pass over every slot.
    template <class Owner>
    static const std::array<BOOL, 256>& keptTags(const Owner& owner)
    {
        static const std::array<BOOL, 256> kept = [&owner] {
            std::array<BOOL, 256> result{};
            SlotList::forEachSlot(owner, [&result](auto* slot) {
                using D = std::remove_pointer_t<decltype(slot)>;
                if constexpr (HasFixedTag<D>::value)
                    result[D::DESCRIPTOR_TAG] = TRUE;
                else
                    result.fill(TRUE); // a slot for several tags (a base class): look at every slot
            });
            return result;
        }();
        return kept;
    }
};

// An entry's descriptor of one kind through its inheriting getter: with
// inherit set, an entry lacking the descriptor asks its parent table (when
// linked) through getter; one found there sets *inherited (when given) to
// TRUE. *inherited is never set to FALSE.
template <class D, class Parent>
D* inheritDescriptor(D* own, const Parent* parent, D* (Parent::*getter)() const, BOOL inherit, BOOL* inherited)
{
    if (!inherit || own || !parent)
        return own;
    D* parents = (parent->*getter)();
    if (parents && inherited)
        *inherited = TRUE;
    return parents;
}

} // namespace Vuro

#endif
