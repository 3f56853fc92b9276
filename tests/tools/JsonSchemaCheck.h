// The part of JSON Schema that docs/isdbt-dump.schema.json uses (type, enum,
// minimum, maximum, pattern, required, properties, patternProperties,
// additionalProperties, items, oneOf, if/then, local $ref), enough to check
// each line of a dump against the documented schema.
#ifndef VURO_TEST_JSON_SCHEMA_CHECK_H
#define VURO_TEST_JSON_SCHEMA_CHECK_H

#include <algorithm>
#include <fstream>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

#include <regex.h>

#include <nlohmann/json.hpp>

namespace VuroTest {

class JsonSchemaCheck {
public:
    explicit JsonSchemaCheck(const std::string& path) { m_root = nlohmann::json::parse(std::ifstream(path)); }

    // Empty when value matches, else where and why it does not.
    std::string check(const nlohmann::json& value) const { return check(m_root, value, "$"); }

private:
    // The schema's patterns are POSIX extended expressions, matched with the C
    // library's engine, compiled once each: std::regex recurses once per
    // character, which a long hex "data" string turns into a stack overflow
    // on small-stack targets (32-bit ARM under the sanitizers).
    struct RegexFree {
        void operator()(regex_t* compiled) const
        {
            regfree(compiled);
            delete compiled;
        }
    };
    bool matches(const std::string& text, const std::string& pattern) const
    {
        auto found = m_patterns.find(pattern);
        if (found == m_patterns.end()) {
            auto* compiled = new regex_t;
            if (regcomp(compiled, pattern.c_str(), REG_EXTENDED | REG_NOSUB) != 0) {
                delete compiled;
                throw std::invalid_argument("not a POSIX extended expression: " + pattern);
            }
            found = m_patterns.emplace(pattern, std::unique_ptr<regex_t, RegexFree>(compiled)).first;
        }
        return regexec(found->second.get(), text.c_str(), 0, nullptr, 0) == 0;
    }

    const nlohmann::json& resolve(const nlohmann::json& schema) const
    {
        const std::string ref = schema.at("$ref").get<std::string>(); // "#/$defs/name"
        return m_root.at("$defs").at(ref.substr(ref.rfind('/') + 1));
    }

    static bool hasType(const nlohmann::json& value, const std::string& type)
    {
        if (type == "integer")
            return value.is_number_integer();
        if (type == "number")
            return value.is_number();
        if (type == "boolean")
            return value.is_boolean();
        if (type == "string")
            return value.is_string();
        if (type == "null")
            return value.is_null();
        if (type == "array")
            return value.is_array();
        return type == "object" && value.is_object();
    }

    std::string check(const nlohmann::json& schema, const nlohmann::json& value, const std::string& at) const
    {
        if (schema.is_boolean())
            return schema.get<bool>() ? "" : at + ": not allowed";
        if (schema.contains("$ref")) {
            const std::string found = check(resolve(schema), value, at);
            if (!found.empty())
                return found;
        }
        if (schema.contains("type")) {
            bool matches = false;
            const nlohmann::json& types = schema.at("type");
            for (const auto& type : types.is_array() ? types : nlohmann::json::array({types}))
                matches = matches || hasType(value, type.get<std::string>());
            if (!matches)
                return at + ": " + value.dump() + " is not of type " + types.dump();
        }
        if (schema.contains("enum") && std::find(schema["enum"].begin(), schema["enum"].end(), value) == schema["enum"].end())
            return at + ": " + value.dump() + " is not one of " + schema["enum"].dump();
        if (value.is_number()) {
            if (schema.contains("minimum") && value.get<double>() < schema["minimum"].get<double>())
                return at + ": below the minimum";
            if (schema.contains("maximum") && value.get<double>() > schema["maximum"].get<double>())
                return at + ": above the maximum";
        }
        if (value.is_string() && schema.contains("pattern") &&
            !matches(value.get<std::string>(), schema["pattern"].get<std::string>()))
            return at + ": does not match " + schema["pattern"].get<std::string>();
        if (schema.contains("oneOf")) {
            int matches = 0;
            std::string last;
            for (const auto& option : schema["oneOf"]) {
                const std::string found = check(option, value, at);
                matches += found.empty();
                if (!found.empty())
                    last = found;
            }
            if (matches != 1)
                return at + ": matches " + std::to_string(matches) + " of oneOf (" + last + ")";
        }
        if (schema.contains("if") && check(schema["if"], value, at).empty() && schema.contains("then")) {
            const std::string found = check(schema["then"], value, at);
            if (!found.empty())
                return found;
        }
        if (value.is_array() && schema.contains("items"))
            for (std::size_t i = 0; i < value.size(); ++i) {
                const std::string found = check(schema["items"], value[i], at + "[" + std::to_string(i) + "]");
                if (!found.empty())
                    return found;
            }
        if (value.is_object())
            return checkObject(schema, value, at);
        return "";
    }

    std::string checkObject(const nlohmann::json& schema, const nlohmann::json& value, const std::string& at) const
    {
        if (schema.contains("required"))
            for (const auto& key : schema["required"])
                if (!value.contains(key.get<std::string>()))
                    return at + ": lacks " + key.get<std::string>();
        for (auto it = value.begin(); it != value.end(); ++it) {
            const std::string where = at + "." + it.key();
            bool matched = false;
            if (schema.contains("properties") && schema["properties"].contains(it.key())) {
                matched = true;
                const std::string found = check(schema["properties"][it.key()], it.value(), where);
                if (!found.empty())
                    return found;
            }
            if (schema.contains("patternProperties"))
                for (auto pattern = schema["patternProperties"].begin(); pattern != schema["patternProperties"].end();
                     ++pattern)
                    if (matches(it.key(), pattern.key())) {
                        matched = true;
                        const std::string found = check(pattern.value(), it.value(), where);
                        if (!found.empty())
                            return found;
                    }
            if (!matched && schema.contains("additionalProperties")) {
                const std::string found = check(schema["additionalProperties"], it.value(), where);
                if (!found.empty())
                    return found;
            }
        }
        return "";
    }

    nlohmann::json m_root;
    mutable std::map<std::string, std::unique_ptr<regex_t, RegexFree>> m_patterns;
};

} // namespace VuroTest

#endif
