#include "machine/profile/profile_reader.h"
#include "unicode/utf.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <cstdio>

namespace machine {
namespace {

using nlohmann::json;

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

bool IsWithin(const json& value, Limits limits) {
    const auto number = WholeNumberOf(value);
    return number && *number >= limits.low && *number <= limits.high;
}

bool IsWithin(const json& value, double low, double high) {
    return value.is_number() && value.get<double>() >= low && value.get<double>() <= high;
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

bool Holds(const json& value, const StringRule& rule) {
    return value.is_string() && (!rule.holds || rule.holds(value.get_ref<const std::string&>()));
}

} // namespace

std::string PointerPart(std::string_view name) {
    std::string part;
    for (const char character : name) {
        part += character == '~' ? "~0" : character == '/' ? "~1" : std::string(1, character);
    }
    return part;
}

std::optional<std::vector<std::byte>> BytesFromHex(std::string_view text) {
    std::vector<std::byte> bytes;
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
                return text.size() == length &&
                       std::ranges::all_of(text, [](char each) { return each >= ' ' && each <= '~'; });
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

const json* ProfileReader::Right(std::string_view name, const std::string& expected, Presence presence,
                                 const Rule& rule) {
    const json* value = Value(name, expected, presence);
    if (value != nullptr && !rule(*value)) {
        Fail(name, expected);
        return nullptr;
    }
    return value;
}

bool ProfileReader::Elements(std::string_view name, const std::string& expected, Presence presence,
                             const Rule& rule, const std::function<void(const json&)>& take) {
    const json* list = Right(name, "a list, each element " + expected, presence, &json::is_array);
    for (std::size_t index = 0; list != nullptr && index < list->size(); ++index) {
        if (const json& element = (*list)[index]; rule(element)) {
            take(element);
        } else {
            m_issues.push_back({PointerOf(name) + '/' + std::to_string(index), "expected " + expected});
        }
    }
    return list != nullptr;
}

bool ProfileReader::Has(std::string_view name) {
    return Value(name, "") != nullptr;
}

bool ProfileReader::Flag(std::string_view name, bool& flag) {
    const json* value = Right(name, "true or false", Presence::Optional, &json::is_boolean);
    flag = value != nullptr ? value->get<bool>() : flag;
    return value != nullptr;
}

bool ProfileReader::Real(std::string_view name, double& number, double low, double high, Presence presence) {
    const json* value = Right(name, RangeOf(low, high), presence,
                              [=](const json& each) { return IsWithin(each, low, high); });
    number = value != nullptr ? value->get<double>() : number;
    return value != nullptr;
}

bool ProfileReader::Reals(std::string_view name, std::vector<double>& numbers, double low, double high) {
    return Elements(
        name, RangeOf(low, high), Presence::Optional,
        [=](const json& each) { return IsWithin(each, low, high); },
        [&](const json& element) { numbers.push_back(element.get<double>()); });
}

std::optional<std::uint64_t> ProfileReader::WholeNumber(std::string_view name, Limits limits,
                                                        Presence presence) {
    const json* value =
        Right(name, RangeOf(limits), presence, [=](const json& each) { return IsWithin(each, limits); });
    return value != nullptr ? WholeNumberOf(*value) : std::nullopt;
}

bool ProfileReader::WholeNumbers(std::string_view name, Limits limits,
                                 const std::function<void(std::uint64_t)>& take) {
    return Elements(
        name, RangeOf(limits), Presence::Optional, [=](const json& each) { return IsWithin(each, limits); },
        [&](const json& element) { take(*WholeNumberOf(element)); });
}

bool ProfileReader::String(std::string_view name, std::string& text, Presence presence,
                           const StringRule& rule) {
    const json* value =
        Right(name, rule.expected, presence, [&](const json& each) { return Holds(each, rule); });
    if (value != nullptr) {
        text = value->get_ref<const std::string&>();
    }
    return value != nullptr;
}

bool ProfileReader::String(std::string_view name, std::u16string& text, Presence presence,
                           const StringRule& rule) {
    std::string narrow;
    const bool read = String(name, narrow, presence, rule);
    if (read) {
        text = unicode::WideFromUtf8(narrow);
    }
    return read;
}

bool ProfileReader::Strings(std::string_view name, std::vector<std::u16string>& texts, Presence presence,
                            const StringRule& rule) {
    return Elements(
        name, rule.expected, presence, [&](const json& each) { return Holds(each, rule); },
        [&](const json& element) {
            texts.push_back(unicode::WideFromUtf8(element.get_ref<const std::string&>()));
        });
}

std::optional<std::size_t> ProfileReader::WordOf(std::string_view name,
                                                 std::initializer_list<std::string_view> words,
                                                 Presence presence) {
    std::string expected;
    for (const std::string_view word : words) {
        expected.append(expected.empty() ? "one of \"" : ", \"").append(word).append("\"");
    }
    const auto placeOf = [&](const json& value) {
        const auto* word = value.get_ptr<const std::string*>();
        return word == nullptr ? words.end() : std::ranges::find(words, *word);
    };
    const json* value =
        Right(name, expected, presence, [&](const json& each) { return placeOf(each) != words.end(); });
    return value != nullptr ? std::optional<std::size_t>(placeOf(*value) - words.begin()) : std::nullopt;
}

bool ProfileReader::Bytes(std::string_view name, std::vector<std::byte>& bytes, Presence presence) {
    std::string digits;
    const bool read =
        String(name, digits, presence,
               {"bytes as pairs of hexadecimal digits in a string", [](const std::string& each) {
                    return BytesFromHex(each).has_value();
                }});
    if (read) {
        bytes = *BytesFromHex(digits);
    }
    return read;
}

bool ProfileReader::Bytes(std::string_view name, std::vector<std::byte>& bytes, std::size_t count,
                          std::string_view separators, Presence presence) {
    const auto bytesOf = [&](std::string digits) {
        std::erase_if(digits, [=](char each) { return separators.find(each) != std::string_view::npos; });
        const auto whole = BytesFromHex(digits);
        return whole && whole->size() == count ? whole : std::nullopt;
    };
    std::string digits;
    const bool read = String(name, digits, presence,
                             {std::to_string(count) + (count == 1 ? " byte" : " bytes") +
                                  " as pairs of hexadecimal digits in a string",
                              [&](const std::string& each) {
                                  return bytesOf(each).has_value();
                              }});
    if (read) {
        bytes = *bytesOf(digits);
    }
    return read;
}

bool ProfileReader::Object(std::string_view name, const Body& body, Presence presence) {
    const json* value = Value(name, "an object in braces", presence);
    if (value != nullptr) {
        Read(*value, PointerOf(name), m_issues, body);
    }
    return value != nullptr;
}

bool ProfileReader::Objects(std::string_view name, const Body& body) {
    std::size_t index = 0;
    const auto read = [&](const json& element) {
        Read(element, PointerOf(name) + '/' + std::to_string(index++), m_issues, body);
    };
    return Elements(
        name, "an object in braces", Presence::Optional, [](const json&) { return true; }, read);
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
