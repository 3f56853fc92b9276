// Parse entry points the fuzz target reaches, selected by the first input byte.
#ifndef VURO_FUZZ_ENTRIES_H
#define VURO_FUZZ_ENTRIES_H

#include <cstdint>
#include <string>
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
std::vector<Entry> eventEntries();            // EIT, its events, the programme guide record
// Index of the entry with that name (the selector byte of its seeds); -1 if none.
int entryIndex(const std::string& name);

// Tables: parsed on their own, then once more against the first result as
// previous, which exercises the version and type comparisons.
template <class T>
void table(U8* data, U32 length)
{
    U16 code = 0;
    T* first = T::parse(data, length, 1, 1, &code, nullptr);
    if (!first)
        return;
    delete T::parse(data, length, 0, 0, &code, first);
    delete first;
}

// Descriptors on their own: dataLength is the whole input.
template <class D>
void descriptor(U8* data, U32 length)
{
    U32 parsed = 0;
    U16 code = 0;
    delete D::parse(data, length, &parsed, &code);
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

// Item records (descriptor items).
template <class I>
void item(U8* data, U32 length)
{
    U32 itemLength = 0;
    U16 code = 0;
    delete I::parse(data, length, &itemLength, &code);
}

// Table loop entries (parseDescriptors flag before itemLength).
template <class E>
void loopEntry(U8* data, U32 length)
{
    U32 itemLength = 0;
    U16 code = 0;
    delete E::parse(data, length, 1, &itemLength, &code);
}

} // namespace VuroFuzz

#endif
