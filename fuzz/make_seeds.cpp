// Writes the seed corpus of the fuzz target into the directory given.
#include <cstdio>
#include <string>

#include "FuzzEntries.h"
#include "FuzzSeeds.h"

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s DIRECTORY\n", argv[0]);
        return 2;
    }
    std::vector<VuroFuzz::Seed> seeds = VuroFuzz::allSeeds();
    int written = 0;
    for (const VuroFuzz::Seed& seed : seeds) {
        const int index = VuroFuzz::entryIndex(seed.first);
        if (index < 0) {
            std::fprintf(stderr, "no fuzz entry named %s\n", seed.first.c_str());
            return 1;
        }
        std::string path = std::string(argv[1]) + "/seed-" + std::to_string(written);
        std::FILE* out = std::fopen(path.c_str(), "wb");
        if (!out)
            return 1;
        const unsigned char selector = static_cast<unsigned char>(index);
        std::fwrite(&selector, 1, 1, out);
        std::fwrite(seed.second.data(), 1, seed.second.size(), out);
        std::fclose(out);
        ++written;
    }
    std::printf("%d seeds written\n", written);
    return 0;
}
