#include "FuzzSeeds.h"

namespace VuroFuzz {

using namespace VuroTest;

std::vector<Seed> programMapSeeds()
{
    return {};
}

} // namespace VuroFuzz
