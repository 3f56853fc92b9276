#include "TISDBTParseArena.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>

#if defined(__SANITIZE_ADDRESS__)
#define VURO_ARENA_DISABLED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VURO_ARENA_DISABLED 1
#endif
#endif

namespace Vuro {

#ifdef VURO_ARENA_DISABLED

namespace ParseArena {

void* allocate(std::size_t size)
{
    return ::operator new(size);
}

void release(void* block) noexcept
{
    ::operator delete(block);
}

void detach(void*) noexcept {}

} // namespace ParseArena

TISDBTParseScope::TISDBTParseScope(std::size_t) : m_state{nullptr, nullptr, 0}, m_bOpened(FALSE) {}

TISDBTParseScope::~TISDBTParseScope()
{
    (void)m_state; // no arena in this build
    (void)m_bOpened;
}

#else

namespace {

constexpr std::size_t kAlignment = 16;
constexpr std::size_t kLargestFirstChunk = 64 * 1024;

struct alignas(kAlignment) Chunk {
    // Kept in the parse's first chunk for all its chunks: one for the table,
    // one for each detached object not yet released. An object of the parse
    // may refer to objects in any of its chunks (an item's descriptors, an
    // event's copy of its bytes), so a detached object keeps them all.
    std::atomic<std::size_t> users;
    Chunk* first;  // the parse's first chunk
    Chunk* newest; // in the first chunk: the parse's newest chunk
    Chunk* older;  // the previous chunk of the same parse
    char* next;
    char* end;
};

// In front of every object. owner: the chunk it was carved from, null for a
// heap block of its own. state: kPlain, kDetached, or for the table (the root
// of the parse) kParsing while its parse runs and its newest chunk after.
struct alignas(kAlignment) Header {
    Chunk* owner;
    std::uintptr_t state;
};
constexpr std::uintptr_t kPlain = 0;
constexpr std::uintptr_t kDetached = 1;
constexpr std::uintptr_t kParsing = 2;

using Arena = TISDBTParseScope::State;

// The parse running on this thread, if any. With glibc the variable sits in
// the static TLS block: one load, no look-up call per allocation.
#if defined(__GLIBC__)
__attribute__((tls_model("initial-exec")))
#endif
thread_local Arena* t_arena = nullptr;

// The bump pointer of the newest chunk of the parse running on this thread,
// kept beside each other in the thread's static block so that carving an
// object is two loads and a store. end is null (and every allocation takes
// the slow path) outside a parse and until its first object, the table,
// exists. While end is set, chunk->next of that chunk is stale: next is the
// one in use, written back by syncOut.
struct Bump {
    char* next;
    char* end;
    Chunk* chunk;
};
#if defined(__GLIBC__)
__attribute__((tls_model("initial-exec")))
#endif
thread_local Bump t_bump = {nullptr, nullptr, nullptr};

inline void syncOut()
{
    Bump& bump = t_bump;
    if (bump.chunk)
        bump.chunk->next = bump.next;
    bump = Bump{nullptr, nullptr, nullptr};
}

inline std::size_t rounded(std::size_t size)
{
    return (size + kAlignment - 1) & ~(kAlignment - 1);
}

inline Header& headerOf(void* object)
{
    return *reinterpret_cast<Header*>(static_cast<char*>(object) - sizeof(Header));
}

inline std::size_t capacityOf(const Chunk* chunk)
{
    return static_cast<std::size_t>(chunk->end - reinterpret_cast<const char*>(chunk + 1));
}

// The largest chunk freed last on this thread, kept for the next parse: in
// the steady state a parse then costs no heap call at all. Chunks larger than
// kLargestKept go back to the heap. Freed when the thread ends.
constexpr std::size_t kLargestKept = 256 * 1024;

// The kept chunk itself is a plain thread-local pointer (no constructor or
// destructor, so reaching it costs no initialisation check); the object that
// frees it when the thread ends is created the first time a chunk is kept.
#if defined(__GLIBC__)
__attribute__((tls_model("initial-exec")))
#endif
thread_local Chunk* t_kept = nullptr;

enum KeptCleanupState : unsigned char { kCleanupNone, kCleanupArmed, kCleanupDone };
#if defined(__GLIBC__)
__attribute__((tls_model("initial-exec")))
#endif
thread_local KeptCleanupState t_keptCleanup = kCleanupNone;

struct KeptCleanup {
    KeptCleanup() { t_keptCleanup = kCleanupArmed; }
    ~KeptCleanup()
    {
        std::free(t_kept);
        t_kept = nullptr;
        t_keptCleanup = kCleanupDone; // a table deleted later on this thread frees its chunks
    }
};

__attribute__((noinline)) void armKeptCleanup()
{
    static thread_local KeptCleanup cleanup;
    (void)cleanup;
}

void freeChunk(Chunk* chunk)
{
    const std::size_t capacity = capacityOf(chunk);
    if (capacity <= kLargestKept && (!t_kept || capacityOf(t_kept) < capacity)) {
        if (t_keptCleanup == kCleanupNone)
            armKeptCleanup();
        if (t_keptCleanup == kCleanupArmed) {
            std::free(t_kept);
            t_kept = chunk;
            return;
        }
    }
    std::free(chunk);
}

// One user of the parse chunk belongs to is gone; the last frees them all.
// A count of one is the caller's own use: no other holder exists who could
// change it concurrently (new users come only from the owner's detach), so
// the locked decrement is skipped.
__attribute__((noinline)) void unuse(Chunk* chunk)
{
    Chunk* first = chunk->first;
    if (first->users.load(std::memory_order_acquire) != 1 &&
        first->users.fetch_sub(1, std::memory_order_acq_rel) != 1)
        return;
    for (Chunk* newest = first->newest; newest;) {
        Chunk* older = newest->older;
        freeChunk(newest);
        newest = older;
    }
}

__attribute__((noinline)) Chunk* newChunk(Arena& arena, std::size_t need)
{
    std::size_t capacity = arena.nextCapacity;
    if (capacity < need)
        capacity = need;
    Chunk* chunk = nullptr;
    if (t_kept && capacityOf(t_kept) >= capacity) {
        chunk = t_kept;
        t_kept = nullptr;
        capacity = capacityOf(chunk);
    } else {
        chunk = static_cast<Chunk*>(std::malloc(sizeof(Chunk) + capacity));
    }
    if (!chunk)
        throw std::bad_alloc();
    chunk->older = static_cast<Chunk*>(arena.chunks);
    chunk->first = chunk->older ? chunk->older->first : chunk;
    chunk->first->newest = chunk;
    if (!chunk->older)
        chunk->users.store(1, std::memory_order_relaxed);
    chunk->next = reinterpret_cast<char*>(chunk + 1);
    chunk->end = chunk->next + capacity;
    arena.chunks = chunk;
    arena.nextCapacity = capacity * 2;
    return chunk;
}

// The table is gone: its parse's chunks lose their first user.
void releaseChunks(Chunk* newest)
{
    if (newest)
        unuse(newest);
}

} // namespace

namespace ParseArena {

namespace {

// The rarer paths of allocate and release, kept out of line so that the
// common ones (a bump in the current chunk; a plain object of a parse) stay
// small enough to be inlined into the parses.
__attribute__((noinline)) void* allocateSlow(Arena* arena, std::size_t need)
{
    if (arena) {
        syncOut();
        Chunk* chunk = static_cast<Chunk*>(arena->chunks);
        if (!chunk || static_cast<std::size_t>(chunk->end - chunk->next) < need)
            chunk = newChunk(*arena, need);
        char* const next = chunk->next + need;
        char* object = chunk->next + sizeof(Header);
        const bool root = arena->root == nullptr;
        headerOf(object) = Header{chunk, root ? kParsing : kPlain};
        if (root)
            arena->root = object;
        // The bump pointer goes to the thread's block from the registers,
        // not reloaded from the chunk just written.
        t_bump = Bump{next, chunk->end, chunk};
        return object;
    }
    char* block = static_cast<char*>(std::malloc(need));
    if (!block)
        throw std::bad_alloc();
    char* object = block + sizeof(Header);
    headerOf(object) = Header{nullptr, kPlain};
    return object;
}

__attribute__((noinline)) void releaseSlow(void* object, const Header header) noexcept
{
    if (!header.owner)
        std::free(&headerOf(object));
    else if (header.state == kDetached)
        unuse(header.owner);
    else if (header.state == kParsing) {
        syncOut(); // the next object becomes the root
        t_arena->root = nullptr; // a failed parse: the scope hands the chunks back
    } else
        releaseChunks(reinterpret_cast<Chunk*>(header.state));
}

} // namespace

void* allocate(std::size_t size)
{
    const std::size_t need = sizeof(Header) + rounded(size ? size : 1);
    // Within a parse, after its first object: carve from the newest chunk.
    Bump& bump = t_bump;
    char* next = bump.next;
    if (static_cast<std::size_t>(bump.end - next) >= need) {
        bump.next = next + need;
        char* object = next + sizeof(Header);
        headerOf(object) = Header{bump.chunk, kPlain};
        return object;
    }
    return allocateSlow(t_arena, need);
}

void release(void* object) noexcept
{
    if (!object)
        return;
    const Header header = headerOf(object);
    // A plain object of a parse goes with its table.
    if (header.owner && header.state == kPlain)
        return;
    releaseSlow(object, header);
}

void detach(void* object) noexcept
{
    if (!object)
        return;
    Header& header = headerOf(object);
    if (!header.owner || header.state != kPlain)
        return;
    header.owner->first->users.fetch_add(1, std::memory_order_relaxed);
    header.state = kDetached;
}

} // namespace ParseArena

TISDBTParseScope::TISDBTParseScope(std::size_t sizeHint)
    : m_state{nullptr, nullptr, rounded(sizeHint < kLargestFirstChunk ? sizeHint : kLargestFirstChunk)},
      m_bOpened(t_arena == nullptr ? TRUE : FALSE)
{
    if (m_bOpened)
        t_arena = &m_state;
}

TISDBTParseScope::~TISDBTParseScope()
{
    if (!m_bOpened)
        return;
    syncOut();
    t_arena = nullptr;
    // From now on the table owns the chunks, unless it was deleted during its
    // own parse.
    if (m_state.root)
        headerOf(m_state.root).state = reinterpret_cast<std::uintptr_t>(m_state.chunks);
    else
        releaseChunks(static_cast<Chunk*>(m_state.chunks));
}

#endif

} // namespace Vuro
