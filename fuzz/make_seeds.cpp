// Writes the seed corpus of the fuzz target, and moves corpora between the
// target's form (selector byte + input) and the committed form
// (fuzz/corpus/<entry>/<input>), which stays valid when entries are added.
#include <dirent.h>
#include <sys/stat.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "FuzzEntries.h"
#include "FuzzSeeds.h"

namespace {

using Bytes = std::vector<unsigned char>;

// Folder of an entry in the committed corpus: its name with '/' and ':' made
// file-name safe.
std::string folderOf(const std::string& name)
{
    std::string folder = name;
    for (char& c : folder)
        if (c == '/' || c == ':')
            c = c == '/' ? '@' : '_';
    return folder;
}

std::vector<std::string> filesIn(const std::string& directory)
{
    std::vector<std::string> names;
    if (DIR* dir = opendir(directory.c_str())) {
        while (dirent* entry = readdir(dir))
            if (entry->d_name[0] != '.')
                names.push_back(entry->d_name);
        closedir(dir);
    }
    return names;
}

Bytes readFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

bool writeFile(const std::string& path, const unsigned char* data, std::size_t size)
{
    std::FILE* out = std::fopen(path.c_str(), "wb");
    if (!out)
        return false;
    const bool written = std::fwrite(data, 1, size, out) == size;
    return std::fclose(out) == 0 && written;
}

// Content name: 64-bit FNV-1a in hex, so equal inputs share one file.
std::string contentName(const unsigned char* data, std::size_t size)
{
    unsigned long long hash = 14695981039346656037ull;
    for (std::size_t i = 0; i < size; ++i)
        hash = (hash ^ data[i]) * 1099511628211ull;
    char text[17];
    std::snprintf(text, sizeof text, "%016llx", hash);
    return text;
}

bool writeWithSelector(const std::string& directory, int index, const Bytes& input)
{
    Bytes unit(1, static_cast<unsigned char>(index));
    unit.insert(unit.end(), input.begin(), input.end());
    return writeFile(directory + "/" + contentName(unit.data(), unit.size()), unit.data(), unit.size());
}

int writeSeeds(const std::string& directory)
{
    int written = 0;
    for (const VuroFuzz::Seed& seed : VuroFuzz::allSeeds()) {
        const int index = VuroFuzz::entryIndex(seed.first);
        if (index < 0) {
            std::fprintf(stderr, "no fuzz entry named %s\n", seed.first.c_str());
            return 1;
        }
        // The getters, add / remove sequences and threads take the input of
        // the entry they are named after (or of its other forms).
        const std::string base = seed.first.substr(0, seed.first.find('/'));
        const bool named = seed.first == base || VuroFuzz::entryIndex(base) < 0;
        const int sequence = named ? VuroFuzz::entryIndex(base + "/sequence") : -1;
        const int threads = seed.first == base ? VuroFuzz::entryIndex(base + "/threads") : -1;
        for (int selector : {index, sequence, threads})
            if (selector >= 0) {
                if (!writeWithSelector(directory, selector, seed.second))
                    return 1;
                ++written;
            }
    }
    std::printf("%d seeds written\n", written);
    return 0;
}

// fuzz/corpus/<entry>/<input> -> DIRECTORY/<selector + input>; folders of
// entries that no longer exist are reported and skipped.
int importCorpus(const std::string& corpus, const std::string& directory)
{
    const std::vector<VuroFuzz::Entry>& all = VuroFuzz::entries();
    int written = 0;
    for (const std::string& folder : filesIn(corpus)) {
        int index = -1;
        for (std::size_t i = 0; i < all.size() && index < 0; ++i)
            if (folderOf(all[i].name) == folder)
                index = static_cast<int>(i);
        if (index < 0) {
            std::fprintf(stderr, "skipped %s/%s: no such entry\n", corpus.c_str(), folder.c_str());
            continue;
        }
        for (const std::string& file : filesIn(corpus + "/" + folder)) {
            if (!writeWithSelector(directory, index, readFile(corpus + "/" + folder + "/" + file)))
                return 1;
            ++written;
        }
    }
    std::printf("%d corpus inputs imported\n", written);
    return 0;
}

// DIRECTORY/<selector + input> -> fuzz/corpus/<entry>/<input>.
int exportCorpus(const std::string& directory, const std::string& corpus)
{
    const std::vector<VuroFuzz::Entry>& all = VuroFuzz::entries();
    mkdir(corpus.c_str(), 0755);
    int written = 0;
    for (const std::string& file : filesIn(directory)) {
        const Bytes unit = readFile(directory + "/" + file);
        if (unit.empty())
            continue;
        const std::string folder = corpus + "/" + folderOf(all[unit[0] % all.size()].name);
        mkdir(folder.c_str(), 0755);
        const unsigned char* input = unit.data() + 1;
        if (!writeFile(folder + "/" + contentName(input, unit.size() - 1), input, unit.size() - 1))
            return 1;
        ++written;
    }
    std::printf("%d corpus inputs exported\n", written);
    return 0;
}

// Sections of the sample stream (one file each) handed to every table entry.
int importSections(const std::string& sections, const std::string& directory)
{
    const std::vector<VuroFuzz::Entry>& all = VuroFuzz::entries();
    int written = 0;
    for (const std::string& file : filesIn(sections)) {
        const Bytes section = readFile(sections + "/" + file);
        for (std::size_t i = 0; i < all.size(); ++i) {
            const std::string name = all[i].name;
            if (name.find("Table") != std::string::npos && name.find("/copies") == std::string::npos) {
                if (!writeWithSelector(directory, static_cast<int>(i), section))
                    return 1;
                ++written;
            }
        }
    }
    std::printf("%d section inputs written\n", written);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const std::string mode = argc > 1 ? argv[1] : "";
    if (argc == 2 && mode[0] != '-')
        return writeSeeds(argv[1]);
    if (argc == 4 && mode == "--import")
        return importCorpus(argv[2], argv[3]);
    if (argc == 4 && mode == "--export")
        return exportCorpus(argv[2], argv[3]);
    if (argc == 4 && mode == "--sections")
        return importSections(argv[2], argv[3]);
    std::fprintf(stderr,
                 "usage: %s DIRECTORY                     write the generated seeds\n"
                 "       %s --import CORPUS DIRECTORY     committed corpus -> fuzz inputs\n"
                 "       %s --export DIRECTORY CORPUS     fuzz inputs -> committed corpus\n"
                 "       %s --sections SECTIONS DIRECTORY one section per file -> every table entry\n",
                 argv[0], argv[0], argv[0], argv[0]);
    return 2;
}
