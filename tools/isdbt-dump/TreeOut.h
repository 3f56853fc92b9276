// Where the table printers write: one interface, an indented text tree for
// people and one JSON object per line for programs. Printers describe a
// record once; the two writers lay it out.
#ifndef VURO_TOOLS_TREE_OUT_H
#define VURO_TOOLS_TREE_OUT_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace VuroTools {

class TreeOut {
public:
    virtual ~TreeOut() = default;

    // One record (a table, a refused section, the summary). The title heads
    // the record in the text tree; JSON records carry their fields only.
    virtual void beginRecord(const std::string& title) = 0;
    virtual void endRecord() = 0;

    // Nested groups: an object under a key, a list under a key, and the
    // items of a list (the title names the item in the text tree). Each
    // begin is closed by end().
    virtual void beginObject(const char* key) = 0;
    virtual void beginList(const char* key) = 0;
    virtual void beginItem(const std::string& title) = 0;
    virtual void end() = 0;

    virtual void number(const char* key, std::int64_t value) = 0;
    // A number shown in hexadecimal with the given digits in the text tree.
    virtual void hex(const char* key, std::uint64_t value, int digits) = 0;
    virtual void flag(const char* key, bool value) = 0;
    // Text as the broadcast sends it: raw bytes, shown as UTF-8 in the
    // coding chosen by --charset (TextCharset.h) with control bytes escaped.
    virtual void text(const char* key, const std::string& bytes) = 0;
    // Plain text of the tool itself (names, log lines).
    virtual void label(const char* key, const std::string& value) = 0;
    // A code and what broadcast syntax calls it (name may be null).
    virtual void named(const char* key, std::uint64_t value, int digits, const char* name) = 0;
    virtual void bytes(const char* key, const std::uint8_t* data, std::size_t size) = 0;
    // An element of a list of plain values.
    virtual void value(const std::string& value) = 0;
    // An element of a list of numbers, hexadecimal with the given digits in
    // the text tree, a number in JSON.
    virtual void hexValue(std::uint64_t value, int digits) = 0;
    // An element of a list of measures: its text in the text tree; in JSON a
    // number in the list and the text in a list beside it ("<key>_text").
    virtual void measureValue(std::int64_t value, const std::string& text) = 0;
    // A field with no value (JSON null, "none" in the text tree).
    virtual void none(const char* key) = 0;

    // What the broadcast bytes carry where the library keeps another value
    // on purpose: written right after the field it annotates, as
    // "  [wire: ...]" on its line, or "<key>_wire" in JSON. digits 0 writes
    // decimal. wireAbsent marks a field the library reads that the bytes do
    // not carry (JSON null).
    virtual void wireNumber(const char* key, std::uint64_t value, int digits) = 0;
    virtual void wireNumbers(const char* key, const std::vector<std::uint64_t>& values, int digits) = 0;
    virtual void wireNamed(const char* key, std::uint64_t value, int digits, const char* name) = 0;
    virtual void wireFlag(const char* key, bool value) = 0;
    virtual void wireAbsent(const char* key) = 0;
    // A field the bytes carry that the library does not read: its own line
    // "key: not read  [wire: ...]", or "<key>_wire" alone in JSON.
    virtual void wireOnly(const char* key, std::uint64_t value, int digits) = 0;
};

// Annotates the field just written when the bytes carry another value.
inline void wireIfDiffers(TreeOut& out, const char* key, std::uint64_t library, std::uint64_t wire, int digits)
{
    if (library != wire)
        out.wireNumber(key, wire, digits);
}
inline void wireFlagIfDiffers(TreeOut& out, const char* key, bool library, bool wire)
{
    if (library != wire)
        out.wireFlag(key, wire);
}

// Latin-1 bytes as UTF-8, control bytes written as \xNN.
std::string displayText(const std::string& bytes);

// "0x0640" style text of a value with the given hexadecimal digits.
std::string hexText(std::uint64_t value, int digits);

// An item of a list keyed by an identifier, titled "<what> 0x<key>"
// (program 0xE580, service 0xE598, ...). Closed by end().
void beginKeyedItem(TreeOut& out, const char* what, std::uint64_t key, int digits);

std::unique_ptr<TreeOut> makeTextOut(std::FILE* file);
std::unique_ptr<TreeOut> makeJsonOut(std::FILE* file);

} // namespace VuroTools

#endif
