#include "FuzzEntries.h"

namespace VuroFuzz {

using namespace Vuro;

std::vector<Entry> streamEntries()
{
    return {};
}

} // namespace VuroFuzz
