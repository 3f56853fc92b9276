#ifndef VURO_TESTS_CORPUS_DIR_H
#define VURO_TESTS_CORPUS_DIR_H

#include <cstdlib>
#include <string>
#include <sys/stat.h>

namespace VuroTest {

// The shared corpus of real captures: $VURO_CORPUS_DIR, else ../shared/corpus
// beside the project (or one level further up); empty when there is none.
inline std::string corpusDir(const char* projectRoot)
{
    if (const char* dir = std::getenv("VURO_CORPUS_DIR"))
        return dir;
    for (const char* relative : {"/../shared/corpus", "/../../shared/corpus"}) {
        struct stat info {};
        const std::string dir = projectRoot + std::string(relative);
        if (::stat(dir.c_str(), &info) == 0 && S_ISDIR(info.st_mode))
            return dir;
    }
    return {};
}

} // namespace VuroTest

#endif
