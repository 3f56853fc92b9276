// Parse entry points the fuzz target reaches, selected by the first input byte.
#ifndef VURO_FUZZ_ENTRIES_H
#define VURO_FUZZ_ENTRIES_H

#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <VuroISDBT.h>

namespace VuroFuzz {

using Vuro::U8;
using Vuro::U16;
using Vuro::U32;

struct Entry {
    const char* name;
    // data: a heap buffer of exactly length bytes.
    void (*run)(U8* data, U32 length);
};

const std::vector<Entry>& entries();

// Entry points by family, in the order entries() lists them.
std::vector<Entry> networkEntries();          // network descriptors, NIT
std::vector<Entry> serviceEventEntries();     // service and event descriptors
std::vector<Entry> streamEntries();           // stream and content-protection descriptors
std::vector<Entry> programMapEntries();       // PMT and its entries
std::vector<Entry> serviceTimeEntries();      // SDT, TOT and their descriptors
std::vector<Entry> downloadEntries();         // SDTT and its download records
std::vector<Entry> dsmccEntries();            // datacaster entry, DSM-CC, Libras messages
std::vector<Entry> applicationEntries();      // AIT, applications and their descriptors
std::vector<Entry> sequenceEntries();         // getters and add / remove sequences on parsed objects
std::vector<Entry> eventEntries();            // EIT, its events, the programme guide record
// Index of the entry with that name (the selector byte of its seeds); -1 if none.
int entryIndex(const std::string& name);

// Whether a class offers the bounded overload that takes the end of the
// outermost buffer as a trailing limit.
template <class C, class = void>
struct HasLimit : std::false_type {};
template <class C>
struct HasLimit<C, std::void_t<decltype(C::parse(std::declval<U8*>(), U32(), std::declval<U32*>(),
                                                 std::declval<U16*>(), std::declval<const U8*>()))>>
    : std::true_type {};
template <class C, class = void>
struct HasEntryLimit : std::false_type {};
template <class C>
struct HasEntryLimit<C, std::void_t<decltype(C::parse(std::declval<U8*>(), U32(), Vuro::BOOL(), std::declval<U32*>(),
                                                      std::declval<U16*>(), std::declval<const U8*>()))>>
    : std::true_type {};

// A table of type T that reports another table type, so that it can be
// handed over as a previous table of another type.
template <class T>
struct Retyped : T {
    explicit Retyped(Vuro::TISDBTTable::Type type) : T(nullptr, 0) { this->m_eMyType = type; }
};

// Tables: null data; the section on its own; again against the first result
// as previous (same version: not updated); the section one version later
// against it (accepted as new); against a previous of another type.
template <class T>
void table(U8* data, U32 length)
{
    U16 code = 0;
    delete T::parse(nullptr, length, 1, 1, &code, nullptr);
    T* first = T::parse(data, length, 1, 1, &code, nullptr);
    if (!first)
        return;
    delete T::parse(data, length, 0, 0, &code, first);
    if (length > 5) {
        std::vector<U8> next(data, data + length);
        next[5] = static_cast<U8>((next[5] & ~0x3E) | ((next[5] + 2) & 0x3E));
        delete T::parse(next.data(), length, 1, 1, &code, first);
    }
    Retyped<T> other(first->getType() == Vuro::TISDBTTable::PAT ? Vuro::TISDBTTable::PMT
                                                                  : Vuro::TISDBTTable::PAT);
    delete T::parse(data, length, 1, 1, &code, &other);
    delete first;
}

// Descriptors: null data; the whole input as dataLength (no out-parameters
// for an odd length); and, with the
// bounded overload, descriptor_length + 2 bytes as a table hands them over,
// ending inside, at or past the end of the input, which is the limit.
template <class D>
void descriptor(U8* data, U32 length)
{
    U32 parsed = 0;
    U16 code = 0;
    delete D::parse(nullptr, length, &parsed, &code);
    // An odd length also leaves both out-parameters null.
    delete D::parse(data, length, length & 1 ? nullptr : &parsed, length & 1 ? nullptr : &code);
    if constexpr (HasLimit<D>::value) {
        if (length >= 2)
            delete D::parse(data, data[1] + 2u, &parsed, &code, data + length);
    }
}

// Descriptors as a table hands them over: descriptor_length + 2 bytes, inside
// a larger buffer that ends at the end of the input.
template <class D>
void descriptorWithin(U8* data, U32 length)
{
    U32 parsed = 0;
    U16 code = 0;
    U32 own = length >= 2 && data[1] + 2u <= length ? data[1] + 2u : length;
    delete D::parse(data, own, &parsed, &code, data + length);
}

// Item records (descriptor items): null data; the whole input (no
// out-parameters for an odd length); and, with the
// bounded overload, the bytes after the first with the first byte as
// dataLength (inside, at or past the end of the input, which is the limit).
template <class I>
void item(U8* data, U32 length)
{
    U32 itemLength = 0;
    U16 code = 0;
    delete I::parse(nullptr, length, &itemLength, &code);
    delete I::parse(data, length, length & 1 ? nullptr : &itemLength, length & 1 ? nullptr : &code);
    if constexpr (HasLimit<I>::value) {
        if (length >= 1)
            delete I::parse(data + 1, data[0], &itemLength, &code, data + length);
    }
}

// Table loop entries (parseDescriptors flag before itemLength), the same
// three ways, with and without their descriptors (and out-parameters).
template <class E>
void loopEntry(U8* data, U32 length)
{
    U32 itemLength = 0;
    U16 code = 0;
    delete E::parse(nullptr, length, 1, &itemLength, &code);
    delete E::parse(data, length, 1, &itemLength, &code);
    delete E::parse(data, length, 0, nullptr, nullptr);
    if constexpr (HasEntryLimit<E>::value) {
        if (length >= 1)
            delete E::parse(data + 1, data[0], 1, &itemLength, &code, data + length);
    }
}

} // namespace VuroFuzz

#endif
