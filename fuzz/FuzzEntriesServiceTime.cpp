#include "FuzzEntries.h"

namespace VuroFuzz {

using namespace Vuro;

std::vector<Entry> serviceTimeEntries()
{
    return {};
}

} // namespace VuroFuzz
