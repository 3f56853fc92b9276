#ifndef VURO_TISDBT_ITEM_LIST_H
#define VURO_TISDBT_ITEM_LIST_H

#include <list>

#include "utils/VuroISDBTUtils.h"

namespace Vuro {

/// Owned items in arrival order, reached by 0-based position. Shared storage of
/// descriptors and tables whose entries are listed rather than keyed. Positions
/// at or beyond size() read as null (get) or false (remove).
template <class Item>
class TISDBTItemList {
public:
    TISDBTItemList() = default;
    TISDBTItemList(const TISDBTItemList&) = delete;
    TISDBTItemList& operator=(const TISDBTItemList&) = delete;
    ~TISDBTItemList() { clear(); }

    U32 size() const { return static_cast<U32>(m_items.size()); }

    void add(Item* item) { m_items.push_back(item); }

    Item* get(U32 index) const
    {
        typename std::list<Item*>::const_iterator it = at(index);
        return it == m_items.end() ? nullptr : *it;
    }

    // FALSE when there is no item at index (or a null one); otherwise unlinks
    // it, deletes it and returns TRUE.
    BOOL remove(U32 index)
    {
        typename std::list<Item*>::const_iterator it = at(index);
        if (it == m_items.end() || *it == nullptr)
            return FALSE;
        Item* item = *it;
        m_items.erase(it);
        delete item;
        return TRUE;
    }

    void clear()
    {
        for (Item* item : m_items)
            delete item;
        m_items.clear();
    }

    const std::list<Item*>& items() const { return m_items; }

private:
    typename std::list<Item*>::const_iterator at(U32 index) const
    {
        if (index >= m_items.size())
            return m_items.end();
        typename std::list<Item*>::const_iterator it = m_items.begin();
        while (index-- > 0)
            ++it;
        return it;
    }

    std::list<Item*> m_items;
};

} // namespace Vuro

#endif
