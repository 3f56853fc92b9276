// What the capture-reading examples share: the capture named on the command
// line (the bundled sample stream when none is) runs through the transport
// stream reader and section demultiplexer isdbt-dump uses, and every complete
// section, from its table_id byte, is handed to a function with its PID.
#ifndef VURO_EXAMPLE_CAPTURE_H
#define VURO_EXAMPLE_CAPTURE_H

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <map>
#include <string>
#include <unistd.h>

#include <VuroISDBT.h>

#include "SectionDemux.h"
#include "TsReader.h"

namespace VuroExamples {

// The section's bytes are valid only during the call.
using OnSection = std::function<void(Vuro::U16 pid, Vuro::U8* section, Vuro::U32 length)>;

// Returns the exit status: 0 once the whole capture was read, 1 (with a
// message on stderr) when it cannot be opened or is not a transport stream.
inline int readCapture(int argc, char** argv, const OnSection& onSection)
{
    struct Sink : VuroTools::SectionSink {
        const OnSection& handler;
        explicit Sink(const OnSection& h) : handler(h) {}
        void onSection(std::uint16_t pid, std::uint8_t* section, std::size_t length) override
        {
            handler(pid, section, static_cast<Vuro::U32>(length));
        }
    };

    const char* path = argc > 1 ? argv[1] : VURO_SAMPLE_CAPTURE;
    const int fd = ::open(path, O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        std::fprintf(stderr, "%s: %s\n", path, std::strerror(errno));
        return 1;
    }
    Sink sink(onSection);
    VuroTools::SectionDemux demux(sink);
    VuroTools::TsReader reader(fd);
    const bool read = reader.run(demux);
    ::close(fd);
    if (!read) {
        std::fprintf(stderr, "%s: %s\n", path, reader.error().c_str());
        return 1;
    }
    return 0;
}

// The texts of Brazilian broadcasts are ISO 8859-15 (Latin-1 with the euro
// sign and seven other letters at 0xA4-0xBE); a terminal wants UTF-8.
inline std::string utf8(const std::string& latin9)
{
    static const std::map<unsigned char, const char*> kLatin9 = {
        {0xA4, "\u20AC"}, {0xA6, "\u0160"}, {0xA8, "\u0161"}, {0xB4, "\u017D"},
        {0xB8, "\u017E"}, {0xBC, "\u0152"}, {0xBD, "\u0153"}, {0xBE, "\u0178"}};
    std::string text;
    for (unsigned char c : latin9) {
        const auto other = kLatin9.find(c);
        if (other != kLatin9.end()) {
            text += other->second;
        } else if (c >= 0x80) {
            text += static_cast<char>(0xC0 | c >> 6);
            text += static_cast<char>(0x80 | (c & 0x3F));
        } else {
            text += static_cast<char>(c);
        }
    }
    return text;
}

} // namespace VuroExamples

#endif
