#include "FuzzEntries.h"

namespace VuroFuzz {

using namespace Vuro;

std::vector<Entry> programMapEntries()
{
    return {};
}

} // namespace VuroFuzz
