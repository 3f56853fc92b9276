#include "FuzzSeeds.h"

namespace VuroFuzz {

using namespace VuroTest;

std::vector<Seed> networkSeeds()
{
    return {};
}

} // namespace VuroFuzz
