#include "FuzzEntries.h"

namespace VuroFuzz {

using namespace Vuro;

namespace {

// A programme guide record holding the input as the copy of the descriptor
// whose tag is its first byte, rebuilt and printed.
void epgItem(U8* data, U32 length)
{
    EpgItem record(0x4E, 1, 2, 3, 4, 5, 6, 4, 0, "por", "", "");
    if (length != 0) {
        record.addDescriptorData(data[0], data, length);
        delete record.getDescriptor(data[0]);
    }
    record.printItem();
}

} // namespace

std::vector<Entry> eventEntries()
{
    return {
        // Event information table
        {"TEITTable", table<TEITTable>},
        {"TEventItemDescriptor", item<TEventItemDescriptor>},
        {"EpgItem", epgItem},
    };
}

} // namespace VuroFuzz
