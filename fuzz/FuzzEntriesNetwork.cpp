#include "FuzzEntries.h"

namespace VuroFuzz {

using namespace Vuro;

std::vector<Entry> networkEntries()
{
    return {};
}

} // namespace VuroFuzz
