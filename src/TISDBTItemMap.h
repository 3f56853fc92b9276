#ifndef VURO_TISDBT_ITEM_MAP_H
#define VURO_TISDBT_ITEM_MAP_H

#include <algorithm>
#include <list>
#include <type_traits>
#include <utility>
#include <vector>

#include "TISDBTParseArena.h"
#include "utils/VuroISDBTUtils.h"

namespace Vuro {

/// Owned items keyed by their identifier (service id, program number, country
/// code ...), in ascending key order. Shared storage of item-list descriptors
/// and of tables whose loop entries are keyed. The entries are one sorted
/// array: broadcasts list their loops mostly in key order, so placing an entry
/// is usually an append, and a look-up is a binary search.
template <class Key, class Item>
class TISDBTItemMap {
public:
    using Entry = std::pair<Key, Item*>;
    using Entries = std::vector<Entry, TISDBTArenaAllocator<Entry>>;

    TISDBTItemMap() = default;
    TISDBTItemMap(const TISDBTItemMap&) = delete;
    TISDBTItemMap& operator=(const TISDBTItemMap&) = delete;
    ~TISDBTItemMap() { clear(); }

    U32 size() const { return static_cast<U32>(m_items.size()); }

    // A caller's add: index assignment. An item already stored under the key
    // is displaced without being deleted (it is the caller's to free); the
    // interface has always behaved so and callers rely on it.
    void add(const Key& key, Item* item)
    {
        Item*& stored = slot(key);
        if constexpr (std::is_base_of_v<TISDBTArenaObject, Item>) {
            if (stored != item)
                ParseArena::detach(stored);
        }
        stored = item;
    }

    // Parse-time placement: same key rule (the later item wins), but an item a
    // repeated key in the broadcast displaces is freed, since nothing else
    // refers to it.
    void store(const Key& key, Item* item)
    {
        Item*& stored = slot(key);
        if (stored != item)
            delete stored;
        stored = item;
    }

    Item* get(const Key& key) const
    {
        typename Entries::const_iterator found = find(key);
        return found == m_items.end() ? nullptr : found->second;
    }

    std::list<Key> keys() const
    {
        std::list<Key> result;
        for (const Entry& entry : m_items)
            result.push_back(entry.first);
        return result;
    }

    BOOL remove(const Key& key)
    {
        typename Entries::const_iterator found = find(key);
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
        for (Entry& entry : m_items)
            delete entry.second;
        m_items.clear();
    }

    // The entries in ascending key order (first: key, second: item).
    const Entries& items() const { return m_items; }

private:
    static bool before(const Entry& entry, const Key& key) { return entry.first < key; }

    typename Entries::const_iterator find(const Key& key) const
    {
        typename Entries::const_iterator at = std::lower_bound(m_items.begin(), m_items.end(), key, before);
        return at != m_items.end() && !(key < at->first) ? at : m_items.end();
    }

    // The item pointer stored under key, a new null one when there is none.
    Item*& slot(const Key& key)
    {
        if (m_items.capacity() == 0)
            m_items.reserve(kFirstCapacity);
        if (m_items.empty() || m_items.back().first < key) {
            m_items.emplace_back(key, nullptr);
            return m_items.back().second;
        }
        typename Entries::iterator at = std::lower_bound(m_items.begin(), m_items.end(), key, before);
        if (at == m_items.end() || key < at->first)
            at = m_items.emplace(at, key, nullptr);
        return at->second;
    }

    // Loops of a section mostly hold a handful of entries: room for them at
    // once rather than growing one by one.
    static constexpr std::size_t kFirstCapacity = 8;

    Entries m_items;
};

} // namespace Vuro

#endif
