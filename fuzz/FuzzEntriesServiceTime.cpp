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
    };
}

} // namespace VuroFuzz
