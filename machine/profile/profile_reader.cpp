#include "machine/profile/profile_reader.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <optional>

namespace machine {
namespace {

const nlohmann::json EmptyObject = nlohmann::json::object();

std::optional<std::uint64_t> WholeNumber(const nlohmann::json& value) {
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

std::string Range(std::uint64_t low, std::uint64_t high) {
    return "a whole number from " + std::to_string(low) + " to " + std::to_string(high) +
           ", or the same as \"0x...\"";
}

} // namespace

ProfileReader::ProfileReader(const nlohmann::json& object, std::string place)
    : m_object(&object), m_place(std::move(place)) {
    if (!object.is_object()) {
        throw ProfileError((m_place.empty() ? "/" : m_place) + ": expected an object in braces");
    }
}

bool ProfileReader::Has(std::string_view name) const {
    return m_object->contains(name);
}

const nlohmann::json* ProfileReader::Find(std::string_view name) {
    m_known.emplace(name);
    const auto found = m_object->find(name);
    return found == m_object->end() ? nullptr : &*found;
}

std::string ProfileReader::PlaceOf(std::string_view name) const {
    return m_place + '/' + std::string(name);
}

void ProfileReader::Fail(std::string_view name, const std::string& expected) const {
    throw ProfileError(PlaceOf(name) + ": expected " + expected);
}

std::string ProfileReader::Text(std::string_view name) {
    const auto* value = Find(name);
    if (value == nullptr || !value->is_string()) {
        Fail(name, "a text");
    }
    return value->get<std::string>();
}

std::string ProfileReader::Text(std::string_view name, std::string_view fallback) {
    return Find(name) != nullptr ? Text(name) : std::string(fallback);
}

std::string ProfileReader::FixedText(std::string_view name, std::size_t length) {
    std::string text = Text(name);
    if (text.size() != length ||
        !std::ranges::all_of(text, [](char each) { return each >= ' ' && each <= '~'; })) {
        Fail(name, std::to_string(length) + " letters");
    }
    return text;
}

std::uint64_t ProfileReader::Number(std::string_view name, std::uint64_t low, std::uint64_t high) {
    const auto* value = Find(name);
    const auto number = value == nullptr ? std::nullopt : WholeNumber(*value);
    if (!number || *number < low || *number > high) {
        Fail(name, Range(low, high));
    }
    return *number;
}

std::uint64_t ProfileReader::Number(std::string_view name, std::uint64_t low, std::uint64_t high,
                                    std::uint64_t fallback) {
    return Find(name) != nullptr ? Number(name, low, high) : fallback;
}

double ProfileReader::Real(std::string_view name, double low, double high, double fallback) {
    const auto* value = Find(name);
    if (value == nullptr) {
        return fallback;
    }
    if (!value->is_number() || value->get<double>() < low || value->get<double>() > high) {
        Fail(name, "a number from " + std::to_string(low) + " to " + std::to_string(high));
    }
    return value->get<double>();
}

bool ProfileReader::Flag(std::string_view name, bool fallback) {
    const auto* value = Find(name);
    if (value == nullptr) {
        return fallback;
    }
    if (!value->is_boolean()) {
        Fail(name, "true or false");
    }
    return value->get<bool>();
}

std::size_t ProfileReader::Choice(std::string_view name, std::initializer_list<std::string_view> words,
                                  std::size_t fallback) {
    const auto* value = Find(name);
    if (value == nullptr) {
        return fallback;
    }
    std::string expected = "one of";
    std::size_t place = 0;
    for (const std::string_view word : words) {
        if (value->is_string() && value->get_ref<const std::string&>() == word) {
            return place;
        }
        expected += (place++ == 0 ? " \"" : ", \"") + std::string(word) + '"';
    }
    Fail(name, expected);
}

std::vector<std::byte> ProfileReader::Bytes(std::string_view name) {
    std::vector<std::byte> bytes;
    const auto* value = Find(name);
    if (value == nullptr || !value->is_string() ||
        !BytesFromHex(value->get_ref<const std::string&>(), bytes)) {
        Fail(name, "bytes as pairs of hexadecimal digits in a text");
    }
    return bytes;
}

ProfileReader ProfileReader::Object(std::string_view name) {
    const auto* value = Find(name);
    return {value == nullptr ? EmptyObject : *value, PlaceOf(name)};
}

std::vector<ProfileReader> ProfileReader::Objects(std::string_view name) {
    const auto* value = Find(name);
    if (value == nullptr) {
        return {};
    }
    if (!value->is_array()) {
        Fail(name, "a list of objects");
    }
    std::vector<ProfileReader> objects;
    objects.reserve(value->size());
    for (const auto& element : *value) {
        objects.emplace_back(element, PlaceOf(name) + '/' + std::to_string(objects.size()));
    }
    return objects;
}

std::vector<std::string> ProfileReader::Texts(std::string_view name) {
    const auto* value = Find(name);
    if (value == nullptr) {
        return {};
    }
    std::vector<std::string> texts;
    for (const auto& element : value->is_array() ? *value : nlohmann::json::array({nullptr})) {
        if (!element.is_string()) {
            Fail(name, "a list of texts");
        }
        texts.push_back(element.get<std::string>());
    }
    return texts;
}

std::vector<std::uint64_t> ProfileReader::Numbers(std::string_view name, std::uint64_t low,
                                                  std::uint64_t high) {
    const auto* value = Find(name);
    if (value == nullptr) {
        return {};
    }
    std::vector<std::uint64_t> numbers;
    for (const auto& element : value->is_array() ? *value : nlohmann::json::array({nullptr})) {
        const auto number = WholeNumber(element);
        if (!number || *number < low || *number > high) {
            Fail(name, "a list, each element " + Range(low, high));
        }
        numbers.push_back(*number);
    }
    return numbers;
}

std::vector<double> ProfileReader::Reals(std::string_view name, double low, double high) {
    const auto* value = Find(name);
    if (value == nullptr) {
        return {};
    }
    std::vector<double> numbers;
    for (const auto& element : value->is_array() ? *value : nlohmann::json::array({nullptr})) {
        if (!element.is_number() || element.get<double>() < low || element.get<double>() > high) {
            Fail(name, "a list of numbers from " + std::to_string(low) + " to " + std::to_string(high));
        }
        numbers.push_back(element.get<double>());
    }
    return numbers;
}

std::vector<std::string> ProfileReader::Names() {
    std::vector<std::string> names;
    for (const auto& [name, value] : m_object->items()) {
        names.push_back(name);
    }
    return names;
}

const nlohmann::json& ProfileReader::Raw(std::string_view name) {
    const auto* value = Find(name);
    if (value == nullptr) {
        Fail(name, "a value");
    }
    return *value;
}

void ProfileReader::Finish() const {
    for (const auto& [name, value] : m_object->items()) {
        if (m_known.contains(name)) {
            continue;
        }
        std::string known;
        for (const auto& each : m_known) {
            known += (known.empty() ? "" : ", ") + each;
        }
        throw ProfileError(PlaceOf(name) + ": unknown name; expected one of " + known);
    }
}

bool BytesFromHex(std::string_view text, std::vector<std::byte>& bytes) {
    for (std::size_t place = 0; place < text.size();) {
        if (text[place] == ' ') {
            ++place;
            continue;
        }
        std::uint8_t byte = 0;
        const std::string_view pair = text.substr(place, 2);
        const auto [last, problem] = std::from_chars(pair.data(), pair.data() + pair.size(), byte, 16);
        if (pair.size() != 2 || problem != std::errc{} || last != pair.data() + 2) {
            return false;
        }
        bytes.push_back(std::byte{byte});
        place += 2;
    }
    return true;
}

} // namespace machine
