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

struct KeptChunk {
    Chunk* chunk = nullptr;
    ~KeptChunk() { std::free(chunk); }
};
#if defined(__GLIBC__)
__attribute__((tls_model("initial-exec")))
#endif
thread_local KeptChunk t_kept;

void freeChunk(Chunk* chunk)
{
    const std::size_t capacity = capacityOf(chunk);
    KeptChunk& kept = t_kept;
    if (capacity <= kLargestKept && (!kept.chunk || capacityOf(kept.chunk) < capacity)) {
        std::free(kept.chunk);
        kept.chunk = chunk;
        return;
    }
    std::free(chunk);
}

// One user of the parse chunk belongs to is gone; the last frees them all.
inline void unuse(Chunk* chunk)
{
    Chunk* first = chunk->first;
    if (first->users.fetch_sub(1, std::memory_order_acq_rel) != 1)
        return;
    for (Chunk* newest = first->newest; newest;) {
        Chunk* older = newest->older;
        freeChunk(newest);
        newest = older;
    }
}

Chunk* newChunk(Arena& arena, std::size_t need)
{
    std::size_t capacity = arena.nextCapacity;
    if (capacity < need)
        capacity = need;
    Chunk* chunk = nullptr;
    KeptChunk& kept = t_kept;
    if (kept.chunk && capacityOf(kept.chunk) >= capacity) {
        chunk = kept.chunk;
        kept.chunk = nullptr;
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

void* allocate(std::size_t size)
{
    const std::size_t need = sizeof(Header) + rounded(size ? size : 1);
    Arena* arena = t_arena;
    if (arena) {
        Chunk* chunk = static_cast<Chunk*>(arena->chunks);
        if (!chunk || static_cast<std::size_t>(chunk->end - chunk->next) < need)
            chunk = newChunk(*arena, need);
        char* object = chunk->next + sizeof(Header);
        chunk->next += need;
        headerOf(object) = Header{chunk, kPlain};
        if (!arena->root) {
            arena->root = object;
            headerOf(object).state = kParsing;
        }
        return object;
    }
    char* block = static_cast<char*>(std::malloc(need));
    if (!block)
        throw std::bad_alloc();
    char* object = block + sizeof(Header);
    headerOf(object) = Header{nullptr, kPlain};
    return object;
}

void release(void* object) noexcept
{
    if (!object)
        return;
    const Header header = headerOf(object);
    if (!header.owner)
        std::free(&headerOf(object));
    else if (header.state == kDetached)
        unuse(header.owner);
    else if (header.state == kParsing)
        t_arena->root = nullptr; // a failed parse: the scope hands the chunks back
    else if (header.state != kPlain)
        releaseChunks(reinterpret_cast<Chunk*>(header.state));
    // A plain object of a parse goes with its table.
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
