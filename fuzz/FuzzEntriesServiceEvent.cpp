#include "FuzzEntries.h"

namespace VuroFuzz {

using namespace Vuro;

std::vector<Entry> serviceEventEntries()
{
    return {};
}

} // namespace VuroFuzz
