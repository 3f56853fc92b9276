#ifndef VURO_FUZZ_SEEDS_H
#define VURO_FUZZ_SEEDS_H

#include <string>
#include <utility>
#include <vector>

#include "SectionBuilder.h"

namespace VuroFuzz {

// (entry name, input without the selector byte), built from the same kind of
// realistic vectors the tests use.
using Seed = std::pair<std::string, VuroTest::Bytes>;

std::vector<Seed> foundationSeeds();
std::vector<Seed> networkSeeds();
std::vector<Seed> serviceEventSeeds();
std::vector<Seed> streamSeeds();
std::vector<Seed> programMapSeeds();
std::vector<Seed> serviceTimeSeeds();
std::vector<Seed> downloadSeeds();
std::vector<Seed> dsmccSeeds();
std::vector<Seed> applicationSeeds();
std::vector<Seed> eventSeeds();

std::vector<Seed> allSeeds();

} // namespace VuroFuzz

#endif
