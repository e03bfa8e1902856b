#include "machines/json_places.h"

#include "machine/profile/profile_reader.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace tool {

namespace {

TextPlace PlaceInLine(std::string_view text, std::size_t line, std::size_t start, std::size_t byte) {
    const std::string_view before = text.substr(start, byte - start);
    const auto characters = std::ranges::count_if(
        before, [](char each) { return (static_cast<unsigned char>(each) & 0xC0u) != 0x80u; });
    return {line, static_cast<std::size_t>(characters) + 1};
}

} // namespace

TextPlace PlaceOfByte(std::string_view text, std::size_t byte) {
    const std::string_view before = text.substr(0, byte);
    const std::size_t start = before.rfind('\n') + 1; // npos + 1 is 0
    return PlaceInLine(text, static_cast<std::size_t>(std::ranges::count(before, '\n')) + 1, start,
                       before.size());
}

JsonPlaces::JsonPlaces(std::string_view text) : m_text(text) {
    constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
    m_at = text.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0;
    m_lines.push_back(0);
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n', end + 1)) {
        m_lines.push_back(end + 1);
    }
    SkipSpace();
    Value("", m_at);
}

TextPlace JsonPlaces::Of(const std::string& pointer) const {
    const auto found = m_ranges.find(pointer);
    const std::size_t byte = found != m_ranges.end() ? found->second.named : 0;
    const auto line = std::ranges::upper_bound(m_lines, byte) - m_lines.begin();
    return PlaceInLine(m_text, static_cast<std::size_t>(line), m_lines[static_cast<std::size_t>(line) - 1],
                       byte);
}

ByteRange JsonPlaces::ValueOf(const std::string& pointer) const {
    const auto found = m_ranges.find(pointer);
    return found != m_ranges.end() ? found->second.value : ByteRange{};
}

void JsonPlaces::SkipSpace() {
    m_at = std::min(m_text.find_first_not_of(" \t\r\n", m_at), m_text.size());
}

/// Steps over a string and returns it with its quotes.
std::string_view JsonPlaces::String() {
    const std::size_t start = m_at++;
    while (m_text[m_at] != '"') {
        m_at += m_text[m_at] == '\\' ? 2 : 1;
    }
    ++m_at;
    return m_text.substr(start, m_at - start);
}

void JsonPlaces::Value(const std::string& pointer, std::size_t named) {
    const std::size_t start = m_at;
    switch (m_text[m_at]) {
    case '{':
        Object(pointer);
        break;
    case '[':
        Array(pointer);
        break;
    case '"':
        String();
        break;
    default:
        m_at = std::min(m_text.find_first_of(" \t\r\n,]}", m_at), m_text.size());
    }
    m_ranges[pointer] = {named, {start, m_at}};
}

void JsonPlaces::Object(const std::string& pointer) {
    ++m_at;
    for (SkipSpace(); m_text[m_at] != '}'; SkipSpace()) {
        if (m_text[m_at] == ',') {
            ++m_at;
            SkipSpace();
        }
        const std::size_t named = m_at;
        const auto name = nlohmann::json::parse(String()).get<std::string>();
        const std::string member = pointer + '/' + machine::PointerPart(name);
        SkipSpace();
        ++m_at; // the colon
        SkipSpace();
        Value(member, named);
    }
    ++m_at;
}

void JsonPlaces::Array(const std::string& pointer) {
    ++m_at;
    std::size_t index = 0;
    for (SkipSpace(); m_text[m_at] != ']'; SkipSpace()) {
        if (m_text[m_at] == ',') {
            ++m_at;
            SkipSpace();
        }
        Value(pointer + '/' + std::to_string(index++), m_at);
    }
    ++m_at;
}

} // namespace tool
