#include "FuzzEntries.h"

namespace VuroFuzz {

using namespace Vuro;

std::vector<Entry> serviceTimeEntries()
{
    return {
        // Time offset table
        {"TTOTTable", table<TTOTTable>},
        {"TLocalTimeOffsetDescriptor", descriptor<TLocalTimeOffsetDescriptor>},
        {"TLocalTimeOffsetDescriptor/within", descriptorWithin<TLocalTimeOffsetDescriptor>},
        {"TLocalTimeOffsetDescriptorItem", item<TLocalTimeOffsetDescriptorItem>},
        // Service description table
        {"TServiceDescription", loopEntry<TServiceDescription>},
        {"TSDTTable", table<TSDTTable>},
    };
}

} // namespace VuroFuzz
