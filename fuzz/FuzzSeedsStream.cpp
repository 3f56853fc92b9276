#include "FuzzSeeds.h"

namespace VuroFuzz {

using namespace VuroTest;

std::vector<Seed> streamSeeds()
{
    return {};
}

} // namespace VuroFuzz
