#include "base/text.h"
#include "profiles/sections.h"
#include "profiles/wmi_query.h"
#include "unicode/utf.h"

#include <algorithm>

namespace tool {
namespace {

using observer::Operation;
using observer::RecordedCall;
using observer::RecordedExport;
using observer::Value;

/// Names are written as they were first asked for, and compare in lower case.
std::string Folded(std::string_view name) {
    return Utf8Of(Lower(unicode::WideFromUtf8(name))).value_or("");
}

/// The property's value in a row; null where the row does not have it.
ProfileJson* Find(ProfileJson& row, std::string_view property) {
    for (auto& [name, value] : row.items()) {
        if (Folded(name) == Folded(property)) {
            return &value;
        }
    }
    return nullptr;
}

/// What one query returned.
struct QueryResult {
    const RecordedExport* recorded;
    std::string space;
    WmiQuery query;
    std::vector<ProfileJson> rows;
    bool hasClass = true;
};

/// A value as a profile has it, or nothing.
std::optional<ProfileJson> DatumOf(const Value& value, std::int64_t variantType) {
    constexpr std::int64_t Boolean = 11;
    if (const auto* const number = std::get_if<observer::Number>(&value.held); number != nullptr) {
        return variantType == Boolean ? ProfileJson(number->value != 0) : ProfileJson(number->value);
    }
    if (const auto* const text = std::get_if<std::u16string>(&value.held); text != nullptr) {
        const std::optional<std::string> narrow = Utf8Of(*text);
        return narrow ? std::optional(ProfileJson(*narrow)) : std::nullopt;
    }
    if (const auto* const bytes = std::get_if<observer::Bytes>(&value.held); bytes != nullptr) {
        return ProfileJson{{"bytes", HexOf(*bytes)}};
    }
    if (const auto* const fields = std::get_if<observer::Structure>(&value.held); fields != nullptr) {
        return ProfileJson{{"bytes", HexOf(BytesIn(*fields, "bytes"))},
                           {"lower_bound", NumberIn(*fields, "lower_bound")}};
    }
    if (const auto* const list = std::get_if<observer::List>(&value.held); list != nullptr) {
        ProfileJson elements = ProfileJson::array();
        for (const Value& each : *list) {
            std::optional<ProfileJson> element = DatumOf(each, 0);
            if (!element) {
                return std::nullopt;
            }
            elements.push_back(*std::move(element));
        }
        return elements;
    }
    return ProfileJson();
}

/// Adds the keys of a path: \\.\ROOT\WMI:CLASS.InstanceName="ACPI\\PNP0C14\\VESK_0"
void AddKeys(std::string_view path, ProfileJson& row) {
    const std::size_t name = path.find('.', path.find(':'));
    const std::size_t sign = path.find("=\"", name);
    if (name == std::string_view::npos || sign == std::string_view::npos || !path.ends_with('"')) {
        return;
    }
    std::string value;
    for (std::size_t place = sign + 2; place + 1 < path.size(); ++place) {
        place += path[place] == '\\' ? 1 : 0;
        value += path[place];
    }
    row[std::string(path.substr(name + 1, sign - name - 1))] = value;
}

/// The queries of one export call, and the features of the firmware that it asked for.
class WmiCalls {
public:
    WmiCalls(const RecordedExport& recorded, std::vector<QueryResult>& results, ProfileJson& features,
             LeftOut& leftOut)
        : m_recorded(recorded), m_results(results), m_features(features), m_leftOut(leftOut) {
        for (const RecordedCall& call : recorded.calls) {
            AddCall(call);
        }
    }

private:
    struct RowPlace {
        std::size_t result;
        std::size_t row;
    };

    void AddCall(const RecordedCall& call) {
        const bool succeeded = !HasFailed(call);
        switch (call.operation) {
        case Operation::ConnectServer:
            m_spaces[HandleIn(call.outputs, "services")] =
                Utf8Of(StringIn(call.inputs, "resource")).value_or("");
            break;
        case Operation::ExecQuery:
            if (std::optional<WmiQuery> query = ParsedQuery(StringIn(call.inputs, "query")); !query) {
                m_leftOut.Add(m_recorded.name, "a WMI query of another form");
            } else if (succeeded) {
                m_queries[HandleIn(call.outputs, "rows")] = m_results.size();
                m_results.push_back(
                    {&m_recorded, m_spaces[HandleIn(call.inputs, "services")], *std::move(query), {}});
            }
            break;
        case Operation::Next:
            if (const auto found = m_queries.find(HandleIn(call.inputs, "rows")); found != m_queries.end()) {
                QueryResult& result = m_results[found->second];
                result.hasClass = result.hasClass && succeeded;
                if (succeeded && NumberIn(call.outputs, "returned") == 1) {
                    m_rows[HandleIn(call.outputs, "row")] = {found->second, result.rows.size()};
                    result.rows.push_back(ProfileJson::object());
                }
            }
            break;
        case Operation::Put:
            m_devices[HandleIn(call.inputs, "object")] = StringIn(call.inputs, "text");
            break;
        case Operation::ExecMethod:
            m_answers[HandleIn(call.outputs, "out")] = m_devices[HandleIn(call.inputs, "parameters")];
            break;
        case Operation::Get:
            if (succeeded) {
                AddValue(call);
            }
            break;
        default:
            break;
        }
    }

    void AddValue(const RecordedCall& call) {
        const std::uint32_t object = HandleIn(call.inputs, "object");
        const std::string name = Utf8Of(StringIn(call.inputs, "name")).value_or("");
        const Value* const value = observer::Find(call.outputs, "value");
        if (const auto answer = m_answers.find(object); answer != m_answers.end()) {
            if (name == "device_status") {
                AddFeature(answer->second, static_cast<std::uint32_t>(NumberIn(call.outputs, "value")));
            }
            return;
        }
        const auto place = m_rows.find(object);
        if (place == m_rows.end() || value == nullptr) {
            return;
        }
        ProfileJson& row = m_results[place->second.result].rows[place->second.row];
        if (name == "__PATH") {
            AddKeys(Utf8Of(StringIn(call.outputs, "value")).value_or(""), row);
        } else if (std::optional<ProfileJson> datum = DatumOf(*value, NumberIn(call.outputs, "vartype"))) {
            row[name] = *std::move(datum);
        } else {
            m_leftOut.Add(m_recorded.name, name + " is no Unicode");
        }
    }

    void AddFeature(const std::u16string& device, std::uint32_t status) {
        constexpr std::uint32_t Unknown = 0xFFFFFFFE;
        constexpr std::uint32_t Present = 0x10000;
        const bool supported = status != Unknown && (status & Present) != 0;
        if (device == u"1179735") {
            m_features["battery_health"] = {{"supported", supported}};
        } else if (device == u"1114137") {
            m_features["quiet_fan"] = {{"supported", supported}, {"setting", supported ? status & 1 : 0}};
        }
    }

    const RecordedExport& m_recorded;
    std::vector<QueryResult>& m_results;
    ProfileJson& m_features;
    LeftOut& m_leftOut;
    std::map<std::uint32_t, std::string> m_spaces;     // by the services
    std::map<std::uint32_t, std::size_t> m_queries;    // by the enumerator
    std::map<std::uint32_t, RowPlace> m_rows;          // by the object
    std::map<std::uint32_t, std::u16string> m_devices; // by the method's input
    std::map<std::uint32_t, std::u16string> m_answers; // by the method's output
};

/// Whether the row is known not to meet one of the conditions, or not to be the other row.
bool Contradicts(ProfileJson& row, const WmiQuery& query, const ProfileJson& other) {
    const bool conditions = std::ranges::any_of(query.conditions, [&](const WmiCondition& condition) {
        const ProfileJson* const known = Find(row, condition.property);
        return known != nullptr && (*known == condition.value) != condition.equal;
    });
    bool values = false;
    for (const auto& [name, value] : other.items()) {
        const ProfileJson* const known = Find(row, name);
        values = values || (known != nullptr && *known != value);
    }
    return conditions || values;
}

void Complete(ProfileJson& row, const QueryResult& result, const ProfileJson& found) {
    constexpr std::int64_t Other = 0xFFFFFFFF; // a number that no such condition excludes
    for (const auto& [name, value] : found.items()) {
        if (Find(row, name) == nullptr) {
            row[name] = value;
        }
    }
    for (const WmiCondition& condition : result.query.conditions) {
        if (Find(row, condition.property) == nullptr) {
            row[condition.property] = condition.equal ? condition.value : ProfileJson(Other);
        }
    }
}

/// Adds the rows of a query to those of its class. A query with conditions returns some of them, in their order; which
/// ones is known as far as the properties are.
void Merge(const QueryResult& result, bool isFirst, ProfileJson& rows, LeftOut& leftOut) {
    std::size_t place = 0;
    for (const ProfileJson& found : result.rows) {
        while (place < rows.size() && Contradicts(rows[place], result.query, found)) {
            if (result.query.conditions.empty()) {
                leftOut.Add(result.recorded->name, result.query.className + " had other values before");
                break;
            }
            ++place;
        }
        if (place == rows.size()) {
            if (!isFirst && result.query.conditions.empty()) {
                leftOut.Add(result.recorded->name, result.query.className + " had fewer rows before");
            }
            rows.push_back(ProfileJson::object());
        }
        Complete(rows[place], result, found);
        ++place;
    }
}

} // namespace

void AddWmi(const RecordedExports& exports, ProfileJson& profile, LeftOut& leftOut) {
    std::vector<QueryResult> results;
    ProfileJson features;
    for (const RecordedExport& recorded : exports) {
        WmiCalls(recorded, results, features, leftOut);
    }
    profile["firmware_features"] = std::move(features);
    std::ranges::stable_sort(results, {},
                             [](const QueryResult& result) { return result.query.conditions.size(); });
    std::map<std::string, std::pair<std::string, std::map<std::string, std::string>>> names;
    for (const QueryResult& result : results) {
        auto& [space, classes] = names[Folded(result.space)];
        space = space.empty() ? result.space : space;
        if (!result.hasClass) {
            continue;
        }
        std::string& className = classes[Folded(result.query.className)];
        const bool isFirst = className.empty();
        className = isFirst ? result.query.className : className;
        ProfileJson& rows = profile["wmi"][space][className];
        rows = rows.is_null() ? ProfileJson::array() : rows;
        Merge(result, isFirst, rows, leftOut);
    }
}

} // namespace tool
