#include "FuzzSeeds.h"

namespace VuroFuzz {

using namespace VuroTest;

std::vector<Seed> serviceEventSeeds()
{
    return {};
}

} // namespace VuroFuzz
