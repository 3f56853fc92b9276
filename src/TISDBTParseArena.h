#ifndef VURO_TISDBT_PARSE_ARENA_H
#define VURO_TISDBT_PARSE_ARENA_H

#include <cstddef>
#include <new>

#include "utils/VuroISDBTUtils.h"

namespace Vuro {

/// Where the objects of one parse live. While a table parse runs on a thread,
/// the objects it creates (the table, its copy of the section, loop entries,
/// descriptors, container storage) are carved one after the other out of a
/// few large heap blocks instead of one heap block each, and deleting them
/// costs nothing: the blocks go back to the heap when the table itself is
/// deleted. An object that leaves the table's ownership without being deleted
/// (an item a caller's add displaces, which is the caller's from then on) is
/// passed to ParseArena::detach, which keeps its block alive until that object
/// is deleted too, whenever and on whichever thread.
/// Objects created outside a parse, such as the items a caller hands to add,
/// come from the heap one by one. Built with AddressSanitizer, every object is
/// a heap block of its own, so that an out-of-bounds read is always seen.
namespace ParseArena {

/// size bytes, aligned for any object of the library; throws std::bad_alloc.
void* allocate(std::size_t size);
/// Frees what allocate returned (null is ignored).
void release(void* block) noexcept;
/// The object at block (from allocate, or null) no longer belongs to the
/// object tree it was parsed into: it stays valid until it is released itself.
void detach(void* block) noexcept;

} // namespace ParseArena

/// Opens the arena of one table parse on the calling thread for its lifetime;
/// the first block holds about sizeHint bytes. The first object allocated in
/// the scope is the table: deleting it returns the blocks to the heap. Within
/// an open scope a nested one does nothing.
class TISDBTParseScope {
public:
    explicit TISDBTParseScope(std::size_t sizeHint);
    ~TISDBTParseScope();
    TISDBTParseScope(const TISDBTParseScope&) = delete;
    TISDBTParseScope& operator=(const TISDBTParseScope&) = delete;

    /// The arena's state (used by ParseArena only).
    struct State {
        void* chunks; ///< newest first
        void* root;   ///< the first object allocated
        std::size_t nextCapacity;
    };

private:
    State m_state;
    BOOL m_bOpened;
};

/// Base of the library's objects: new and delete go through the parse arena.
class TISDBTArenaObject {
public:
    static void* operator new(std::size_t size) { return ParseArena::allocate(size); }
    static void operator delete(void* block) noexcept { ParseArena::release(block); }
};

/// Standard-library allocator on the parse arena (container storage).
template <class T>
class TISDBTArenaAllocator {
public:
    using value_type = T;

    TISDBTArenaAllocator() noexcept = default;
    template <class U>
    TISDBTArenaAllocator(const TISDBTArenaAllocator<U>&) noexcept
    {
    }

    T* allocate(std::size_t count) { return static_cast<T*>(ParseArena::allocate(count * sizeof(T))); }
    void deallocate(T* block, std::size_t) noexcept { ParseArena::release(block); }

    template <class U>
    bool operator==(const TISDBTArenaAllocator<U>&) const noexcept
    {
        return true;
    }
    template <class U>
    bool operator!=(const TISDBTArenaAllocator<U>&) const noexcept
    {
        return false;
    }
};

} // namespace Vuro

#endif
