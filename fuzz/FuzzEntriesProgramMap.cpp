#include "FuzzEntries.h"

namespace VuroFuzz {

using namespace Vuro;

std::vector<Entry> programMapEntries()
{
    return {
        {"TProgramMap", loopEntry<TProgramMap>},
        {"TPMTTable", table<TPMTTable>},
    };
}

} // namespace VuroFuzz
