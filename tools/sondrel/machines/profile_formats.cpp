#include "machines/profile_formats.h"

#include "base/text.h"
#include "unicode/utf.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace tool {
namespace {

using Json = nlohmann::json;

/// Pairs of hexadecimal digits with blanks between them, after `marks` are left out.
std::optional<std::size_t> BytesIn(std::string text, std::string_view marks) {
    std::erase_if(text, [marks](char each) { return marks.find(each) != std::string_view::npos; });
    const auto bytes = BytesOfHex(text);
    const bool otherMarks = text.find_first_of(":-") != std::string::npos;
    return bytes && !otherMarks ? std::optional(bytes->size()) : std::nullopt;
}

struct Format {
    std::string_view name;
    bool (*holds)(const std::string& text);
};

constexpr Format Formats[] = {
    {"hex-pairs",
     [](const std::string& text) {
         return BytesIn(text, "").has_value();
     }},
    {"hex-pairs-1",
     [](const std::string& text) {
         return BytesIn(text, "") == 1u;
     }},
    {"hex-pairs-4",
     [](const std::string& text) {
         return BytesIn(text, "") == 4u;
     }},
    {"bssid",
     [](const std::string& text) {
         return BytesIn(text, ":") == 6u;
     }},
    {"guid",
     [](const std::string& text) {
         return BytesIn(text, "{}-") == 16u;
     }},
    {"ssid",
     [](const std::string& text) {
         return text.size() <= 32;
     }},
    {"ten-bytes",
     [](const std::string& text) {
         return text.size() <= 10;
     }},
    {"wide-256",
     [](const std::string& text) {
         return unicode::WideFromUtf8(text).size() <= 256;
     }},
};

bool Holds(const std::string& format, const std::string& text) {
    const auto* const found = std::ranges::find(Formats, format, &Format::name);
    return found == std::end(Formats) || found->holds(text);
}

class FormatWalk {
public:
    explicit FormatWalk(const Json& schema) : m_schema(schema) {}

    void Visit(const Json& value, const Json& bareNode) {
        const Json& node = Resolved(bareNode);
        if (const auto format = node.find("format"); format != node.end() && value.is_string() &&
                                                     !Holds(*format, value.get_ref<const std::string&>())) {
            m_wrong.insert(m_path);
        }
        for (const Json& alternative : node.value("anyOf", Json::array())) {
            if (IsMeant(value, Resolved(alternative))) {
                Visit(value, alternative);
            }
        }
        for (const Json& rule : node.value("allOf", Json::array())) {
            if (rule.contains("if") && Applies(value, rule.at("if"))) {
                Visit(value, rule.at("then"));
            }
        }
        VisitMembers(value, node);
    }

    std::set<std::vector<std::string>> Take() { return std::move(m_wrong); }

private:
    [[nodiscard]] const Json& Resolved(const Json& node) const {
        const auto reference = node.find("$ref");
        return reference == node.end()
                   ? node
                   : m_schema.at(Json::json_pointer(reference->get<std::string>().substr(1)));
    }

    void VisitMembers(const Json& value, const Json& node) {
        if (!value.is_structured()) {
            return;
        }
        const Json& properties = node.contains("properties") ? node.at("properties") : EmptyObject();
        const char* const others = value.is_array() ? "items" : "additionalProperties";
        std::size_t index = 0;
        for (const auto& [name, member] : value.items()) {
            const auto own = properties.find(name);
            const Json* const below = value.is_object() && own != properties.end()        ? &*own
                                      : node.contains(others) && node[others].is_object() ? &node[others]
                                                                                          : nullptr;
            m_path.push_back(value.is_array() ? std::to_string(index++) : name);
            if (below != nullptr) {
                Visit(member, *below);
            }
            m_path.pop_back();
        }
    }

    static const Json& EmptyObject() {
        static const Json Empty = Json::object();
        return Empty;
    }

    /// Of alternatives that differ in their types, or in the names that they need.
    static bool IsMeant(const Json& value, const Json& alternative) {
        const auto type = alternative.find("type");
        if (value.is_string() || type == alternative.end()) {
            return type != alternative.end() && *type == "string";
        }
        return value.is_object() && *type == "object" &&
               std::ranges::all_of(alternative.value("required", Json::array()),
                                   [&](const Json& name) { return value.contains(name.get<std::string>()); });
    }

    /// {"properties": {"type": {"const": ...}}, "required": ["type"]}
    static bool Applies(const Json& value, const Json& condition) {
        for (const auto& [name, node] : condition.at("properties").items()) {
            const auto member = value.find(name);
            if (member == value.end()) {
                return !condition.contains("required");
            }
            const Json wanted = node.contains("const") ? Json::array({node.at("const")}) : node.at("enum");
            if (std::ranges::find(wanted, *member) == wanted.end()) {
                return false;
            }
        }
        return true;
    }

    const Json& m_schema;
    std::vector<std::string> m_path;
    std::set<std::vector<std::string>> m_wrong;
};

/// A whole number, as a profile may write it; 0 for what is none, which the schema has told.
std::uint64_t NumberOf(const Json& object, const char* name) {
    const auto found = object.find(name);
    if (found == object.end()) {
        return 0;
    }
    if (found->is_number_unsigned()) {
        return found->get<std::uint64_t>();
    }
    std::uint64_t number = 0;
    if (found->is_string()) {
        const auto& text = found->get_ref<const std::string&>();
        std::from_chars(text.data() + std::min<std::size_t>(text.size(), 2), text.data() + text.size(),
                        number, 16);
    }
    return number;
}

std::size_t LengthOf(const Json& field) {
    for (const char* const name : {"text", "bytes"}) {
        const auto found = field.find(name);
        if (found != field.end() && found->is_string()) {
            const auto& text = found->get_ref<const std::string&>();
            return *name == 't' ? text.size() : BytesIn(text, "").value_or(0);
        }
    }
    return 0;
}

const Json& ListIn(const Json& object, const char* name) {
    static const Json Empty = Json::array();
    const auto found = object.is_object() ? object.find(name) : object.end();
    return object.is_object() && found != object.end() && found->is_array() ? *found : Empty;
}

} // namespace

std::set<std::vector<std::string>> WrongFormats(const Json& profile, const Json& schema) {
    FormatWalk walk(schema);
    walk.Visit(profile, schema);
    return walk.Take();
}

std::vector<std::string> FieldsBeyondTheirVariables(const Json& profile) {
    std::vector<std::string> pointers;
    const Json variables = profile.is_object() ? profile.value("firmware_variables", Json()) : Json();
    std::size_t variableIndex = 0;
    for (const Json& variable : ListIn(variables, "variables")) {
        std::size_t fieldIndex = 0;
        for (const Json& field : ListIn(variable, "fields")) {
            if (field.is_object() && NumberOf(field, "at") + LengthOf(field) > NumberOf(variable, "size")) {
                pointers.push_back("/firmware_variables/variables/" + std::to_string(variableIndex) +
                                   "/fields/" + std::to_string(fieldIndex) + "/at");
            }
            ++fieldIndex;
        }
        ++variableIndex;
    }
    return pointers;
}

} // namespace tool
