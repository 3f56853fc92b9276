#ifndef VURO_TISDBT_ITEM_MAP_H
#define VURO_TISDBT_ITEM_MAP_H

#include <list>
#include <map>

#include "utils/VuroISDBTUtils.h"

namespace Vuro {

/// Owned items keyed by their identifier (service id, program number, country
/// code ...), in ascending key order. Shared storage of item-list descriptors
/// and of tables whose loop entries are keyed.
template <class Key, class Item>
class TISDBTItemMap {
public:
    TISDBTItemMap() = default;
    TISDBTItemMap(const TISDBTItemMap&) = delete;
    TISDBTItemMap& operator=(const TISDBTItemMap&) = delete;
    ~TISDBTItemMap() { clear(); }

    U32 size() const { return static_cast<U32>(m_items.size()); }

    // A caller's add: index assignment. An item already stored under the key
    // is displaced without being deleted (it is the caller's to free); the
    // interface has always behaved so and callers rely on it.
    void add(const Key& key, Item* item) { m_items[key] = item; }

    // Parse-time placement: same key rule (the later item wins), but an item a
    // repeated key in the broadcast displaces is freed, since nothing else
    // refers to it.
    void store(const Key& key, Item* item)
    {
        Item*& slot = m_items[key];
        if (slot != item)
            delete slot;
        slot = item;
    }

    Item* get(const Key& key) const
    {
        typename std::map<Key, Item*>::const_iterator found = m_items.find(key);
        return found == m_items.end() ? nullptr : found->second;
    }

    std::list<Key> keys() const
    {
        std::list<Key> result;
        for (const auto& entry : m_items)
            result.push_back(entry.first);
        return result;
    }

    BOOL remove(const Key& key)
    {
        typename std::map<Key, Item*>::iterator found = m_items.find(key);
        if (found == m_items.end())
            return FALSE;
        Item* item = found->second;
        m_items.erase(found);
        delete item;
        return TRUE;
    }

    // Deletes every item in key order, then empties the map.
    void clear()
    {
        for (auto& entry : m_items)
            delete entry.second;
        m_items.clear();
    }

    const std::map<Key, Item*>& items() const { return m_items; }

private:
    std::map<Key, Item*> m_items;
};

} // namespace Vuro

#endif
