#ifndef VURO_TESTS_PAL_RECORDER_H
#define VURO_TESTS_PAL_RECORDER_H

#include <mutex>
#include <string>
#include <vector>

namespace VuroTest {

struct PalCall {
    std::string function; // "create", "lock", "unlock", "destroy"
    void* handle;         // the handle passed (for destroy: the handle held before the call)
    int result;           // for create: 0
};

// The test program defines the platform layer's mutex functions itself; the
// library's calls reach them through the dynamic symbols, are recorded here
// and forwarded to the stand-in library.
class PalRecorder {
public:
    static PalRecorder& instance();
    std::vector<PalCall> calls() const;
    void clear();
    void record(const PalCall& call);

private:
    mutable std::mutex m_mutex;
    std::vector<PalCall> m_calls;
};

} // namespace VuroTest

#endif
