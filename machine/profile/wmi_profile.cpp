#include "machine/profile/wmi_profile.h"

#include "machine/profile/profile_reader.h"
#include "machine/text/wide_text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <limits>

namespace machine {
namespace {

using Json = nlohmann::json;

constexpr const char* ExpectedValue =
    "null, true, false, a whole number, a text, a list of numbers or of texts, {\"bytes\": \"...\"} or "
    "{\"lower_bound\": n, \"values\": [...]}";

/// A number as WMI hands it over: in 32 bits, or as text.
WmiDatum NumberDatum(const Json& number) {
    constexpr std::int64_t Lowest = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t Highest = std::numeric_limits<std::uint32_t>::max();
    if (number.is_number_unsigned() && number.get<std::uint64_t>() > Highest) {
        return {WideFromUtf8(std::to_string(number.get<std::uint64_t>()))};
    }
    const auto value = number.get<std::int64_t>();
    if (value < Lowest) {
        return {WideFromUtf8(std::to_string(value))};
    }
    return {value};
}

bool AllOf(const Json& list, bool (Json::*is)() const noexcept) {
    return std::ranges::all_of(list, [is](const Json& element) { return (element.*is)(); });
}

WmiDatum ArrayDatum(ProfileReader& reader, std::string_view name, const Json& list) {
    if (AllOf(list, &Json::is_string)) {
        std::vector<std::u16string> texts;
        for (const Json& text : list) {
            texts.push_back(WideFromUtf8(text.get_ref<const std::string&>()));
        }
        return {std::move(texts)};
    }
    if (!AllOf(list, &Json::is_number_integer)) {
        reader.Fail(name, ExpectedValue);
    }
    return {list.get<std::vector<std::int64_t>>()};
}

WmiDatum ObjectDatum(ProfileReader value) {
    WmiDatum datum;
    if (value.Has("bytes")) {
        datum.value = value.Bytes("bytes");
    } else {
        datum = ArrayDatum(value, "values", value.Raw("values"));
    }
    datum.lowerBound = static_cast<std::int32_t>(value.Number("lower_bound", 0, 0x7FFF'FFFF, 0));
    value.Finish();
    return datum;
}

WmiDatum ReadDatum(ProfileReader& row, const std::string& name) {
    const Json& value = row.Raw(name);
    if (value.is_null()) {
        return {};
    }
    if (value.is_boolean()) {
        return {value.get<bool>()};
    }
    if (value.is_number_integer()) {
        return NumberDatum(value);
    }
    if (value.is_string()) {
        return {WideFromUtf8(value.get_ref<const std::string&>())};
    }
    if (value.is_array()) {
        return ArrayDatum(row, name, value);
    }
    if (value.is_object()) {
        return ObjectDatum(row.Object(name));
    }
    row.Fail(name, ExpectedValue);
}

WmiClassProfile ReadClass(ProfileReader& classes, const std::string& name) {
    WmiClassProfile read{WideFromUtf8(name), {}};
    for (ProfileReader& row : classes.Objects(name)) {
        WmiRow& properties = read.rows.emplace_back();
        for (const std::string& property : row.Names()) {
            properties[WideFromUtf8(property)] = ReadDatum(row, property);
        }
    }
    return read;
}

} // namespace

WmiProfile ReadWmi(ProfileReader reader) {
    WmiProfile wmi;
    for (const std::string& name : reader.Names()) {
        ProfileReader classes = reader.Object(name);
        WmiNamespaceProfile& space = wmi.namespaces.emplace_back();
        space.name = WideFromUtf8(name);
        for (const std::string& className : classes.Names()) {
            space.classes.push_back(ReadClass(classes, className));
        }
    }
    return wmi;
}

} // namespace machine
