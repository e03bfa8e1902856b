#include "machine/profile/sections/wmi_profile.h"

#include "machine/profile/profile_reader.h"
#include "unicode/utf.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <limits>

namespace machine {
namespace {

using Json = nlohmann::json;

constexpr const char* ExpectedValue = "null, true, false, a whole number, a string, a list of whole numbers "
                                      "or of strings, {\"bytes\": \"...\"} or "
                                      "{\"lower_bound\": n, \"values\": [...]}";

/// A number as WMI returns it: in 32 bits, or as a string.
WmiDatum NumberDatum(const Json& number) {
    constexpr std::int64_t Lowest = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t Highest = std::numeric_limits<std::uint32_t>::max();
    if (number.is_number_unsigned() && number.get<std::uint64_t>() > Highest) {
        return {unicode::WideFromUtf8(std::to_string(number.get<std::uint64_t>()))};
    }
    const auto value = number.get<std::int64_t>();
    if (value < Lowest) {
        return {unicode::WideFromUtf8(std::to_string(value))};
    }
    return {value};
}

bool AllOf(const Json& list, bool (Json::*is)() const noexcept) {
    return std::ranges::all_of(list, [is](const Json& element) { return (element.*is)(); });
}

void ReadArray(ProfileReader& reader, std::string_view name, const Json& list, WmiDatum& datum) {
    if (list.is_array() && AllOf(list, &Json::is_string)) {
        auto& texts = datum.value.emplace<std::vector<std::u16string>>();
        for (const Json& text : list) {
            texts.push_back(unicode::WideFromUtf8(text.get_ref<const std::string&>()));
        }
    } else if (list.is_array() && AllOf(list, &Json::is_number_integer)) {
        datum.value = list.get<std::vector<std::int64_t>>();
    } else {
        reader.Fail(name, ExpectedValue);
    }
}

void ReadObjectDatum(ProfileReader& reader, WmiDatum& datum) {
    if (reader.Has("bytes")) {
        reader.Bytes("bytes", datum.value.emplace<std::vector<std::byte>>());
    } else if (const Json* values = reader.Value("values", ExpectedValue, Presence::Required)) {
        ReadArray(reader, "values", *values, datum);
    }
    reader.Number("lower_bound", datum.lowerBound);
}

WmiDatum ReadDatum(ProfileReader& row, const std::string& name) {
    WmiDatum datum;
    const Json& value = *row.Value(name, ExpectedValue);
    if (value.is_boolean()) {
        datum.value = value.get<bool>();
    } else if (value.is_number_integer()) {
        datum = NumberDatum(value);
    } else if (value.is_string()) {
        datum.value = unicode::WideFromUtf8(value.get_ref<const std::string&>());
    } else if (value.is_object()) {
        row.Object(name, datum, ReadObjectDatum);
    } else if (!value.is_null()) {
        ReadArray(row, name, value, datum);
    }
    return datum;
}

void ReadRow(ProfileReader& reader, WmiRow& row) {
    for (const std::string& property : reader.Names()) {
        row[unicode::WideFromUtf8(property)] = ReadDatum(reader, property);
    }
}

} // namespace

void ReadWmi(ProfileReader& reader, WmiProfile& wmi) {
    for (const std::string& name : reader.Names()) {
        auto& space = wmi[unicode::WideFromUtf8(name)];
        reader.Object(name, [&](ProfileReader& classes) {
            for (const std::string& className : classes.Names()) {
                classes.Objects(className, space[unicode::WideFromUtf8(className)], ReadRow);
            }
        });
    }
}

} // namespace machine
