// How broadcast text bytes are shown: Brazilian broadcasts code their texts
// in ISO 8859-15 (Latin-9), Japanese ones in ARIB STD-B24 8-unit code. Both
// are shown as UTF-8; `--charset` overrides the guess.
#ifndef VURO_TOOLS_TEXT_CHARSET_H
#define VURO_TOOLS_TEXT_CHARSET_H

#include <string>

namespace VuroTools {

enum class Charset {
    AUTO,   // ARIB when the text carries ARIB control codes or the stream is Japanese, else Latin-9
    LATIN9, // ISO 8859-15
    ARIB,   // ARIB STD-B24, decoded by libaribb24
    RAW     // printable ASCII as is, every other byte as \xNN
};

// Parses "auto", "latin9", "arib" or "raw"; false for anything else.
bool charsetFromName(const std::string& name, Charset& charset);

// The process-wide choice (AUTO until set) and the hint the auto guess uses:
// set once a table shows the stream comes from a Japanese network.
void setCharset(Charset charset);
void setJapaneseStream(bool japanese);
bool japaneseStream();
// Whether this build decodes ARIB text (libaribb24 was found when it was
// configured); without it ARIB text is shown as with RAW.
bool aribDecoding();
// Network ids of Japanese broadcasters (terrestrial 0x7880-0x7FE8, the BS
// and CS satellites 1-10).
bool isJapaneseNetwork(unsigned originalNetworkId);

// Broadcast text bytes as UTF-8 under the current choice; control bytes left
// after decoding and backslashes are escaped (\xNN, \\).
std::string broadcastText(const std::string& bytes);
// The same, with an explicit coding.
std::string broadcastText(const std::string& bytes, Charset charset);

} // namespace VuroTools

#endif
