#ifndef VURO_TISDBT_ITEM_LIST_H
#define VURO_TISDBT_ITEM_LIST_H

#include <vector>

#include "TISDBTParseArena.h"
#include "utils/VuroISDBTUtils.h"

namespace Vuro {

/// Owned items in arrival order, reached by 0-based position. Shared storage of
/// descriptors and tables whose entries are listed rather than keyed. Positions
/// at or beyond size() read as null (get) or false (remove).
template <class Item>
class TISDBTItemList {
public:
    using Entries = std::vector<Item*, TISDBTArenaAllocator<Item*>>;

    TISDBTItemList() = default;
    TISDBTItemList(const TISDBTItemList&) = delete;
    TISDBTItemList& operator=(const TISDBTItemList&) = delete;
    ~TISDBTItemList() { clear(); }

    U32 size() const { return static_cast<U32>(m_items.size()); }

    void add(Item* item)
    {
        if (m_items.capacity() == 0)
            m_items.reserve(kFirstCapacity);
        m_items.push_back(item);
    }

    Item* get(U32 index) const { return index < m_items.size() ? m_items[index] : nullptr; }

    // FALSE when there is no item at index (or a null one); otherwise unlinks
    // it, deletes it and returns TRUE.
    BOOL remove(U32 index)
    {
        if (index >= m_items.size() || m_items[index] == nullptr)
            return FALSE;
        Item* item = m_items[index];
        m_items.erase(m_items.begin() + index);
        delete item;
        return TRUE;
    }

    void clear()
    {
        for (Item* item : m_items)
            delete item;
        m_items.clear();
    }

    // The items in arrival order.
    const Entries& items() const { return m_items; }

private:
    // Loops of a section mostly hold a handful of entries: room for them at
    // once rather than growing one by one.
    static constexpr std::size_t kFirstCapacity = 8;

    Entries m_items;
};

} // namespace Vuro

#endif
