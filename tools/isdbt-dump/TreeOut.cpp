#include "TreeOut.h"

#include "TextCharset.h"

#include <nlohmann/json.hpp>

namespace VuroTools {

std::string displayText(const std::string& bytes)
{
    static const char kHex[] = "0123456789ABCDEF";
    std::string shown;
    shown.reserve(bytes.size());
    for (unsigned char c : bytes) {
        if (c < 0x20 || (c >= 0x7F && c < 0xA0) || c == '\\') {
            if (c == '\\') {
                shown += "\\\\";
                continue;
            }
            shown += "\\x";
            shown += kHex[c >> 4];
            shown += kHex[c & 0x0F];
        } else if (c < 0x80) {
            shown += static_cast<char>(c);
        } else {
            shown += static_cast<char>(0xC0 | (c >> 6));
            shown += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    return shown;
}

std::string hexText(std::uint64_t value, int digits)
{
    char buffer[24];
    std::snprintf(buffer, sizeof buffer, "0x%0*llX", digits, static_cast<unsigned long long>(value));
    return buffer;
}

void beginKeyedItem(TreeOut& out, const char* what, std::uint64_t key, int digits)
{
    out.beginItem(std::string(what) + " " + hexText(key, digits));
}

namespace {

std::string hexBytes(const std::uint8_t* data, std::size_t size)
{
    static const char kHex[] = "0123456789ABCDEF";
    std::string out;
    for (std::size_t i = 0; i < size; ++i) {
        if (i)
            out += ' ';
        out += kHex[data[i] >> 4];
        out += kHex[data[i] & 0x0F];
    }
    return out;
}

// "key: value" lines, two spaces per level. A group whose header line has
// no child yet is left open, so that an empty one reads "key: none".
class TextOut : public TreeOut {
public:
    explicit TextOut(std::FILE* file) : m_file(file) {}

    void beginRecord(const std::string& title) override
    {
        m_text.clear();
        m_level = 0;
        m_text += title;
        m_open = true;
        m_level = 1;
    }
    void endRecord() override
    {
        closeHeader(false);
        m_text += '\n';
        std::fwrite(m_text.data(), 1, m_text.size(), m_file);
        m_text.clear();
    }
    void beginObject(const char* key) override { header(key); }
    void beginList(const char* key) override { header(key); }
    void beginItem(const std::string& title) override { header(title.c_str()); }
    void end() override
    {
        closeHeader(true);
        --m_level;
    }
    void number(const char* key, std::int64_t value) override { line(key, std::to_string(value)); }
    void hex(const char* key, std::uint64_t value, int digits) override { line(key, hexText(value, digits)); }
    void flag(const char* key, bool value) override { line(key, value ? "yes" : "no"); }
    void text(const char* key, const std::string& bytes) override { line(key, "\"" + broadcastText(bytes) + "\""); }
    void label(const char* key, const std::string& value) override { line(key, value); }
    void named(const char* key, std::uint64_t value, int digits, const char* name) override
    {
        std::string shown = hexText(value, digits);
        if (name) {
            shown += " (";
            shown += name;
            shown += ')';
        }
        line(key, shown);
    }
    void bytes(const char* key, const std::uint8_t* data, std::size_t size) override
    {
        line(key, size ? hexBytes(data, size) : "none");
    }
    void value(const std::string& value) override
    {
        closeHeader(false);
        indent();
        m_text += value;
        m_text += '\n';
    }
    void hexValue(std::uint64_t value, int digits) override { this->value(hexText(value, digits)); }
    void measureValue(std::int64_t, const std::string& text) override { value(text); }
    void none(const char* key) override { line(key, "none"); }
    void wireNumber(const char*, std::uint64_t value, int digits) override { annotate(numberText(value, digits)); }
    void wireNumbers(const char*, const std::vector<std::uint64_t>& values, int digits) override
    {
        std::string shown;
        for (std::uint64_t value : values)
            shown += (shown.empty() ? "" : ", ") + numberText(value, digits);
        annotate(shown);
    }
    void wireNamed(const char*, std::uint64_t value, int digits, const char* name) override
    {
        annotate(numberText(value, digits) + (name ? std::string(" (") + name + ")" : std::string()));
    }
    void wireFlag(const char*, bool value) override { annotate(value ? "yes" : "no"); }
    void wireOnly(const char* key, std::uint64_t value, int digits) override
    {
        line(key, "not read");
        wireNumber(key, value, digits);
    }
    void wireAbsent(const char*) override { annotate("not carried"); }

private:
    static std::string numberText(std::uint64_t value, int digits)
    {
        return digits ? hexText(value, digits) : std::to_string(value);
    }
    // On the line just written: "key: value  [wire: ...]".
    void annotate(const std::string& wire)
    {
        if (!m_text.empty() && m_text.back() == '\n')
            m_text.pop_back();
        m_text += "  [wire: " + wire + "]\n";
    }
    void indent() { m_text.append(static_cast<std::size_t>(m_level) * 2, ' '); }
    void closeHeader(bool emptyGroup)
    {
        if (!m_open)
            return;
        m_text += emptyGroup ? ": none\n" : (m_level <= 1 ? "\n" : ":\n");
        m_open = false;
    }
    void header(const char* key)
    {
        closeHeader(false);
        indent();
        m_text += key;
        m_open = true;
        ++m_level;
    }
    void line(const char* key, const std::string& shown)
    {
        closeHeader(false);
        indent();
        m_text += key;
        m_text += ": ";
        m_text += shown;
        m_text += '\n';
    }

    std::FILE* m_file;
    std::string m_text;
    int m_level = 0;
    bool m_open = false;
};

// One JSON object per record, on one line.
class JsonOut : public TreeOut {
public:
    explicit JsonOut(std::FILE* file) : m_file(file) {}

    void beginRecord(const std::string&) override
    {
        m_root = nlohmann::ordered_json::object();
        m_stack.assign(1, Level{&m_root, {}, {}});
    }
    void endRecord() override
    {
        const std::string line = m_root.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
        std::fwrite(line.data(), 1, line.size(), m_file);
        m_stack.clear();
    }
    void beginObject(const char* key) override { push(key, nlohmann::ordered_json::object()); }
    void beginList(const char* key) override { push(key, nlohmann::ordered_json::array()); }
    void beginItem(const std::string&) override { push(nullptr, nlohmann::ordered_json::object()); }
    void end() override
    {
        Level done = std::move(m_stack.back());
        m_stack.pop_back();
        nlohmann::ordered_json& parent = *m_stack.back().node;
        if (!done.texts.empty() && parent.is_object())
            parent[done.key + "_text"] = done.texts;
    }
    void number(const char* key, std::int64_t value) override { set(key, value); }
    void hex(const char* key, std::uint64_t value, int) override { set(key, value); }
    void flag(const char* key, bool value) override { set(key, value); }
    void text(const char* key, const std::string& bytes) override { set(key, broadcastText(bytes)); }
    void label(const char* key, const std::string& value) override { set(key, value); }
    void named(const char* key, std::uint64_t value, int, const char* name) override
    {
        set(key, value);
        if (name)
            set((std::string(key) + "_name").c_str(), name);
    }
    void bytes(const char* key, const std::uint8_t* data, std::size_t size) override
    {
        set(key, hexBytes(data, size));
    }
    void value(const std::string& value) override { set(nullptr, value); }
    void hexValue(std::uint64_t value, int) override { set(nullptr, value); }
    void measureValue(std::int64_t value, const std::string& text) override
    {
        set(nullptr, value);
        m_stack.back().texts.push_back(text);
    }
    void none(const char* key) override { set(key, nullptr); }
    void wireNumber(const char* key, std::uint64_t value, int) override { set(wireKey(key).c_str(), value); }
    void wireNumbers(const char* key, const std::vector<std::uint64_t>& values, int) override
    {
        set(wireKey(key).c_str(), values);
    }
    void wireNamed(const char* key, std::uint64_t value, int, const char* name) override
    {
        set(wireKey(key).c_str(), value);
        if (name)
            set((wireKey(key) + "_name").c_str(), name);
    }
    void wireFlag(const char* key, bool value) override { set(wireKey(key).c_str(), value); }
    void wireOnly(const char* key, std::uint64_t value, int) override { set(wireKey(key).c_str(), value); }
    void wireAbsent(const char* key) override { set(wireKey(key).c_str(), nullptr); }

private:
    struct Level {
        nlohmann::ordered_json* node;
        std::string key;                // under which the node sits in its parent object
        std::vector<std::string> texts; // of measureValue, written beside the list at its end
    };
    static std::string wireKey(const char* key) { return std::string(key) + "_wire"; }
    template <class V>
    void set(const char* key, V&& value)
    {
        nlohmann::ordered_json& top = *m_stack.back().node;
        if (top.is_array())
            top.push_back(std::forward<V>(value));
        else
            top[key] = std::forward<V>(value);
    }
    void push(const char* key, nlohmann::ordered_json&& group)
    {
        nlohmann::ordered_json& top = *m_stack.back().node;
        if (top.is_array()) {
            top.push_back(std::move(group));
            m_stack.push_back(Level{&top.back(), {}, {}});
        } else {
            top[key] = std::move(group);
            m_stack.push_back(Level{&top[key], key, {}});
        }
    }

    std::FILE* m_file;
    nlohmann::ordered_json m_root;
    std::vector<Level> m_stack;
};

} // namespace

std::unique_ptr<TreeOut> makeTextOut(std::FILE* file) { return std::make_unique<TextOut>(file); }
std::unique_ptr<TreeOut> makeJsonOut(std::FILE* file) { return std::make_unique<JsonOut>(file); }

} // namespace VuroTools
