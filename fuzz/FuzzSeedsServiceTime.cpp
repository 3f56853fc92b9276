#include "FuzzSeeds.h"

namespace VuroFuzz {

using namespace VuroTest;

std::vector<Seed> serviceTimeSeeds()
{
    return {};
}

} // namespace VuroFuzz
