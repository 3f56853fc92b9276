#include "TextCharset.h"

// The decoder's headers declare C functions without extern "C".
extern "C" {
#if VURO_HAVE_ARIBB24
#include <aribb24/aribb24.h>
#include <aribb24/decoder.h>
#endif
}

#include <atomic>
#include <memory>
#include <vector>

namespace VuroTools {

namespace {

std::atomic<Charset> g_charset{Charset::AUTO};
std::atomic<bool> g_japanese{false};

const char kHex[] = "0123456789ABCDEF";

void escapeByte(std::string& out, unsigned char c)
{
    if (c == '\\') {
        out += "\\\\";
        return;
    }
    out += "\\x";
    out += kHex[c >> 4];
    out += kHex[c & 0x0F];
}

void appendUtf8(std::string& out, unsigned code)
{
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

std::string raw(const std::string& bytes)
{
    std::string out;
    for (unsigned char c : bytes) {
        if (c >= 0x20 && c < 0x7F && c != '\\')
            out += static_cast<char>(c);
        else
            escapeByte(out, c);
    }
    return out;
}

// ISO 8859-15 differs from Latin-1 in eight positions.
unsigned latin9CodePoint(unsigned char c)
{
    switch (c) {
    case 0xA4: return 0x20AC; // euro sign
    case 0xA6: return 0x0160;
    case 0xA8: return 0x0161;
    case 0xB4: return 0x017D;
    case 0xB8: return 0x017E;
    case 0xBC: return 0x0152;
    case 0xBD: return 0x0153;
    case 0xBE: return 0x0178;
    default: return c;
    }
}

std::string latin9(const std::string& bytes)
{
    std::string out;
    out.reserve(bytes.size());
    for (unsigned char c : bytes) {
        if (c < 0x20 || (c >= 0x7F && c < 0xA0) || c == '\\')
            escapeByte(out, c);
        else
            appendUtf8(out, latin9CodePoint(c));
    }
    return out;
}

#if VURO_HAVE_ARIBB24
// Length of the well-formed UTF-8 sequence at text[at], 0 when there is none.
std::size_t utf8Length(const std::string& text, std::size_t at)
{
    const unsigned char lead = static_cast<unsigned char>(text[at]);
    const std::size_t length = lead < 0x80 ? 1 : (lead >> 5) == 0x06 ? 2 : (lead >> 4) == 0x0E ? 3 : (lead >> 3) == 0x1E ? 4 : 0;
    if (length == 0 || at + length > text.size())
        return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((static_cast<unsigned char>(text[at + i]) & 0xC0) != 0x80)
            return 0;
    return length;
}

// Escapes the control characters the decoder leaves in its UTF-8 output, and
// any byte that is not part of a well-formed sequence, so that the text is
// always valid UTF-8 (JSON output requires it).
std::string escapeControls(const std::string& utf8)
{
    std::string out;
    out.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const unsigned char c = static_cast<unsigned char>(utf8[at]);
        const std::size_t length = utf8Length(utf8, at);
        if (length == 0 || c < 0x20 || c == 0x7F || c == '\\') {
            escapeByte(out, c);
            ++at;
        } else {
            out.append(utf8, at, length);
            at += length;
        }
    }
    return out;
}

struct AribInstance {
    void operator()(arib_instance_t* instance) const { arib_instance_destroy(instance); }
};

std::string arib(const std::string& bytes)
{
    if (bytes.empty())
        return {};
    // One decoder per call: the decoder keeps the code-set state of one text.
    std::unique_ptr<arib_instance_t, AribInstance> instance(arib_instance_new(nullptr));
    if (!instance)
        return raw(bytes);
    arib_decoder_t* decoder = arib_get_decoder(instance.get());
    if (!decoder)
        return raw(bytes);
    arib_initialize_decoder(decoder);
    // A character takes at most 4 UTF-8 bytes; some codes expand to a few characters.
    std::vector<char> utf8(bytes.size() * 8 + 16);
    const std::size_t size = arib_decode_buffer(decoder, reinterpret_cast<const unsigned char*>(bytes.data()),
                                                bytes.size(), utf8.data(), utf8.size());
    arib_finalize_decoder(decoder);
    if (size == 0)
        return raw(bytes);
    return escapeControls(std::string(utf8.data(), size < utf8.size() ? size : utf8.size()));
}
#else
// Built without libaribb24 (a target Debian has no build of): the bytes as they are.
std::string arib(const std::string& bytes) { return raw(bytes); }
#endif

// Codes only ARIB text uses: ESC (designations), LS1/LS0, SS2/SS3 and the C1
// range (size, colour and other controls), which Latin-9 text never holds.
bool looksArib(const std::string& bytes)
{
    for (unsigned char c : bytes)
        if (c == 0x1B || c == 0x0E || c == 0x0F || c == 0x19 || c == 0x1D || (c >= 0x80 && c < 0xA0))
            return true;
    return false;
}

// ISO 639 language and ISO 3166 country codes are three ASCII letters in any
// broadcast; as ARIB text three bytes would be one and a half kanji.
bool isThreeLetterCode(const std::string& bytes)
{
    if (bytes.size() != 3)
        return false;
    for (unsigned char c : bytes)
        if (!((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')))
            return false;
    return true;
}

} // namespace

bool charsetFromName(const std::string& name, Charset& charset)
{
    static const struct {
        const char* name;
        Charset charset;
    } kNames[] = {{"auto", Charset::AUTO}, {"latin9", Charset::LATIN9}, {"arib", Charset::ARIB}, {"raw", Charset::RAW}};
    for (const auto& entry : kNames)
        if (name == entry.name) {
            charset = entry.charset;
            return true;
        }
    return false;
}

void setCharset(Charset charset) { g_charset = charset; }
void setJapaneseStream(bool japanese) { g_japanese = japanese; }
bool japaneseStream() { return g_japanese; }

bool aribDecoding() { return VURO_HAVE_ARIBB24 != 0; }

bool isJapaneseNetwork(unsigned originalNetworkId)
{
    return (originalNetworkId >= 0x7880 && originalNetworkId <= 0x7FE8) ||
           (originalNetworkId >= 1 && originalNetworkId <= 10);
}

std::string broadcastText(const std::string& bytes) { return broadcastText(bytes, g_charset); }

std::string broadcastText(const std::string& bytes, Charset charset)
{
    switch (charset) {
    case Charset::LATIN9:
        return latin9(bytes);
    case Charset::ARIB:
        return arib(bytes);
    case Charset::RAW:
        return raw(bytes);
    case Charset::AUTO:
        break;
    }
    if (isThreeLetterCode(bytes))
        return latin9(bytes);
    return g_japanese || looksArib(bytes) ? arib(bytes) : latin9(bytes);
}

} // namespace VuroTools
