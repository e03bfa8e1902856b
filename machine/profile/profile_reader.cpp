#include "machine/profile/profile_reader.h"
#include "unicode/utf.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <cstdio>

namespace machine {
namespace {

using nlohmann::json;

using Bytes = std::vector<std::byte>;

std::optional<std::uint64_t> WholeNumberOf(const json& value) {
    if (value.is_number_unsigned()) {
        return value.get<std::uint64_t>();
    }
    if (!value.is_string()) {
        return std::nullopt;
    }
    const auto& text = value.get_ref<const std::string&>();
    constexpr std::size_t LongestNumber = 18;
    if (!text.starts_with("0x") || text.size() < 3 || text.size() > LongestNumber) {
        return std::nullopt;
    }
    std::uint64_t number = 0;
    const char* end = text.data() + text.size();
    const auto [last, problem] = std::from_chars(text.data() + 2, end, number, 16);
    return problem == std::errc{} && last == end ? std::optional(number) : std::nullopt;
}

std::optional<std::uint64_t> WholeNumberOf(const json& value, Limits limits) {
    const auto number = WholeNumberOf(value);
    return number && *number >= limits.low && *number <= limits.high ? number : std::nullopt;
}

std::optional<double> RealOf(const json& value, double low, double high) {
    const double number = value.is_number() ? value.get<double>() : std::numeric_limits<double>::quiet_NaN();
    return number >= low && number <= high ? std::optional(number) : std::nullopt;
}

std::string RangeOf(Limits limits) {
    return "a whole number from " + std::to_string(limits.low) + " to " + std::to_string(limits.high) +
           ", or the same as \"0x...\"";
}

std::string RangeOf(double low, double high) {
    char range[64];
    std::snprintf(range, sizeof range, "a number from %g to %g", low, high);
    return range;
}

std::optional<std::string> StringOf(const json& value, const StringRule& rule) {
    const auto* text = value.get_ptr<const std::string*>();
    return text != nullptr && (!rule.holds || rule.holds(*text)) ? std::optional(*text) : std::nullopt;
}

std::optional<std::u16string> WideOf(const json& value, const StringRule& rule) {
    const auto text = StringOf(value, rule);
    return text ? std::optional(unicode::WideFromUtf8(*text)) : std::nullopt;
}

bool IsPrintableAscii(char character) {
    return character >= ' ' && character <= '~';
}

} // namespace

std::string PointerPart(std::string_view name) {
    std::string part;
    for (const char character : name) {
        part += character == '~' ? "~0" : character == '/' ? "~1" : std::string(1, character);
    }
    return part;
}

std::optional<Bytes> BytesFromHex(std::string_view text) {
    Bytes bytes;
    for (std::size_t place = 0; place < text.size();) {
        if (text[place] == ' ') {
            ++place;
            continue;
        }
        std::uint8_t byte = 0;
        const std::string_view pair = text.substr(place, 2);
        const auto [last, problem] = std::from_chars(pair.data(), pair.data() + pair.size(), byte, 16);
        if (pair.size() != 2 || problem != std::errc{} || last != pair.data() + 2) {
            return std::nullopt;
        }
        bytes.push_back(std::byte{byte});
        place += 2;
    }
    return bytes;
}

StringRule PrintableAscii(std::size_t length) {
    return {"a string of " + std::to_string(length) + " printable ASCII characters",
            [length](const std::string& text) {
                return text.size() == length && std::ranges::all_of(text, IsPrintableAscii);
            }};
}

StringRule PrintableAsciiUpTo(std::size_t length) {
    return {"a string of at most " + std::to_string(length) + " printable ASCII characters",
            [length](const std::string& text) {
                return text.size() <= length && std::ranges::all_of(text, IsPrintableAscii);
            }};
}

void ProfileReader::Read(const json& value, const std::string& pointer, ProfileIssues& issues,
                         const Body& body) {
    if (!value.is_object()) {
        issues.push_back({pointer, "expected an object in braces"});
        return;
    }
    ProfileReader reader(value, pointer, issues);
    body(reader);
    reader.ReportUnknownNames();
}

std::string ProfileReader::PointerOf(std::string_view name) const {
    return m_pointer + '/' + PointerPart(name);
}

void ProfileReader::Fail(std::string_view name, const std::string& expected) {
    m_issues.push_back({PointerOf(name), "expected " + expected});
}

const json* ProfileReader::Value(std::string_view name, const std::string& expected, Presence presence) {
    m_known.emplace(name);
    const auto found = m_object.find(name);
    if (found == m_object.end() && presence == Presence::Required) {
        m_issues.push_back({m_pointer, '"' + std::string(name) + "\" is missing: expected " + expected});
    }
    return found == m_object.end() ? nullptr : &*found;
}

template <class Target, class Convert>
bool ProfileReader::Take(std::string_view name, const std::string& expected, Presence presence,
                         Target& target, Convert convert) {
    const json* value = Value(name, expected, presence);
    auto converted = value != nullptr ? convert(*value) : std::nullopt;
    if (converted) {
        target = std::move(*converted);
    } else if (value != nullptr) {
        Fail(name, expected);
    }
    return converted.has_value();
}

void ProfileReader::Elements(std::string_view name, const std::string& expected, Presence presence,
                             const std::function<bool(const json&)>& take) {
    const std::string expectedList = "a list, each element " + expected;
    const json* list = Value(name, expectedList, presence);
    if (list != nullptr && !list->is_array()) {
        Fail(name, expectedList);
        return;
    }
    for (std::size_t index = 0; list != nullptr && index < list->size(); ++index) {
        if (!take((*list)[index])) {
            m_issues.push_back({PointerOf(name) + '/' + std::to_string(index), "expected " + expected});
        }
    }
}

template <class Target, class Convert>
void ProfileReader::TakeAll(std::string_view name, const std::string& expected, Presence presence,
                            std::vector<Target>& targets, Convert convert) {
    Elements(name, expected, presence, [&](const json& each) {
        const auto converted = convert(each);
        if (converted) {
            targets.push_back(*converted);
        }
        return converted.has_value();
    });
}

bool ProfileReader::Has(std::string_view name) {
    return Value(name, "") != nullptr;
}

bool ProfileReader::Flag(std::string_view name, bool& flag) {
    return Take(name, "true or false", Presence::Optional, flag, [](const json& each) {
        return each.is_boolean() ? std::optional(each.get<bool>()) : std::nullopt;
    });
}

bool ProfileReader::Real(std::string_view name, double& number, double low, double high, Presence presence) {
    return Take(name, RangeOf(low, high), presence, number,
                [=](const json& each) { return RealOf(each, low, high); });
}

void ProfileReader::Reals(std::string_view name, std::vector<double>& numbers, double low, double high) {
    TakeAll(name, RangeOf(low, high), Presence::Optional, numbers,
            [=](const json& each) { return RealOf(each, low, high); });
}

std::optional<std::uint64_t> ProfileReader::WholeNumber(std::string_view name, Limits limits,
                                                        Presence presence) {
    std::optional<std::uint64_t> number;
    Take(name, RangeOf(limits), presence, number,
         [=](const json& each) { return WholeNumberOf(each, limits); });
    return number;
}

std::vector<std::uint64_t> ProfileReader::WholeNumbers(std::string_view name, Limits limits) {
    std::vector<std::uint64_t> numbers;
    TakeAll(name, RangeOf(limits), Presence::Optional, numbers,
            [=](const json& each) { return WholeNumberOf(each, limits); });
    return numbers;
}

bool ProfileReader::String(std::string_view name, std::string& text, Presence presence,
                           const StringRule& rule) {
    return Take(name, rule.expected, presence, text, [&](const json& each) { return StringOf(each, rule); });
}

bool ProfileReader::String(std::string_view name, std::u16string& text, Presence presence,
                           const StringRule& rule) {
    return Take(name, rule.expected, presence, text, [&](const json& each) { return WideOf(each, rule); });
}

void ProfileReader::Strings(std::string_view name, std::vector<std::u16string>& texts, Presence presence,
                            const StringRule& rule) {
    TakeAll(name, rule.expected, presence, texts, [&](const json& each) { return WideOf(each, rule); });
}

std::optional<std::size_t> ProfileReader::WordOf(std::string_view name,
                                                 std::initializer_list<std::string_view> words,
                                                 Presence presence) {
    std::string expected;
    for (const std::string_view word : words) {
        expected.append(expected.empty() ? "one of \"" : ", \"").append(word).append("\"");
    }
    std::optional<std::size_t> place;
    Take(name, expected, presence, place, [&](const json& each) -> std::optional<std::size_t> {
        const auto* const found = std::ranges::find(words, StringOf(each, {}).value_or(""));
        return found != words.end() ? std::optional(found - words.begin()) : std::nullopt;
    });
    return place;
}

bool ProfileReader::Bytes(std::string_view name, std::vector<std::byte>& bytes, Presence presence) {
    return Take(name, "bytes as pairs of hexadecimal digits in a string", presence, bytes,
                [](const json& each) {
                    const auto digits = StringOf(each, {});
                    return digits ? BytesFromHex(*digits) : std::nullopt;
                });
}

bool ProfileReader::Bytes(std::string_view name, std::vector<std::byte>& bytes, std::size_t count,
                          std::string_view separators, Presence presence) {
    const std::string expected = std::to_string(count) + (count == 1 ? " byte" : " bytes") +
                                 " as pairs of hexadecimal digits in a string";
    return Take(name, expected, presence, bytes, [&](const json& each) {
        std::string digits = StringOf(each, {}).value_or("");
        std::erase_if(digits, [=](char unit) { return separators.find(unit) != std::string_view::npos; });
        const auto whole = BytesFromHex(digits);
        return whole && whole->size() == count ? whole : std::nullopt;
    });
}

bool ProfileReader::Object(std::string_view name, const Body& body, Presence presence) {
    const json* value = Value(name, "an object in braces", presence);
    if (value != nullptr) {
        Read(*value, PointerOf(name), m_issues, body);
    }
    return value != nullptr;
}

void ProfileReader::Objects(std::string_view name, const Body& body) {
    std::size_t index = 0;
    Elements(name, "an object in braces", Presence::Optional, [&](const json& element) {
        Read(element, PointerOf(name) + '/' + std::to_string(index++), m_issues, body);
        return true;
    });
}

std::vector<std::string> ProfileReader::Names() {
    std::vector<std::string> names;
    for (const auto& [name, value] : m_object.items()) {
        m_known.insert(name);
        names.push_back(name);
    }
    return names;
}

void ProfileReader::ReportUnknownNames() {
    for (const auto& [name, value] : m_object.items()) {
        if (m_known.contains(name)) {
            continue;
        }
        std::string known;
        for (const auto& each : m_known) {
            known += (known.empty() ? "" : ", ") + each;
        }
        m_issues.push_back(
            {PointerOf(name), "unknown name; expected one of " + known, {m_known.begin(), m_known.end()}});
    }
}

} // namespace machine
