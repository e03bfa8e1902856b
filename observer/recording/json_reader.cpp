#include "observer/recording/json.h"

#include "unicode/utf.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <concepts>
#include <optional>

namespace observer {
namespace {

constexpr unsigned DeepestNesting = 16;

/// Takes two digits at a time off their front.
std::optional<unsigned> TakeByte(std::string_view& digits) {
    unsigned byte = 0;
    const char* const end = digits.data() + std::min<std::size_t>(digits.size(), 2);
    if (digits.size() < 2 || std::from_chars(digits.data(), end, byte, 16).ptr != end) {
        return std::nullopt;
    }
    digits.remove_prefix(2);
    return byte;
}

class Reader {
public:
    explicit Reader(std::string_view line) : m_line(line) {}

    Value Whole() {
        Value value = Read();
        SkipBlanks();
        if (m_place != m_line.size()) {
            Fail("something comes after the value");
        }
        return value;
    }

private:
    [[noreturn]] void Fail(const char* problem) const { throw JsonError(problem, m_place); }

    void SkipBlanks() {
        while (m_place < m_line.size() &&
               (m_line[m_place] == ' ' || m_line[m_place] == '\t' || m_line[m_place] == '\r')) {
            ++m_place;
        }
    }

    /// The next character that is no blank; zero at the end.
    char Next() {
        SkipBlanks();
        return m_place < m_line.size() ? m_line[m_place] : '\0';
    }

    bool Take(std::string_view text) {
        const bool is = m_line.substr(m_place).starts_with(text);
        m_place += is ? text.size() : 0;
        return is;
    }

    void Expect(char character) {
        if (Next() != character) {
            Fail(m_place == m_line.size() ? "the line ends too early"
                                          : "this character does not belong here");
        }
        ++m_place;
    }

    Value Read() {
        switch (Next()) {
        case '{':
            return ReadObject();
        case '[':
            return ReadList();
        case '"':
            return {unicode::WideFromUtf8(ReadString())};
        default:
            return Take("null")    ? Value{}
                   : Take("true")  ? Value{true}
                   : Take("false") ? Value{false}
                                   : ReadNumber();
        }
    }

    Value ReadNumber() {
        std::int64_t number = 0;
        const char* const start = m_line.data() + m_place;
        const auto [end, problem] = std::from_chars(start, m_line.data() + m_line.size(), number);
        if (problem != std::errc()) {
            Fail(m_place == m_line.size() ? "the line ends too early" : "this is no value");
        }
        m_place += static_cast<std::size_t>(end - start);
        return {Number{number}};
    }

    /// In UTF-8.
    std::string ReadString() {
        Expect('"');
        std::string text;
        for (;;) {
            if (m_place == m_line.size()) {
                Fail("the string has no end");
            }
            const char character = m_line[m_place++];
            if (character == '"') {
                return text;
            }
            if (character == '\\') {
                ReadEscape(text);
            } else {
                text += character;
            }
        }
    }

    void ReadEscape(std::string& text) {
        constexpr std::string_view Escapes = "\"\\/bfnrt";
        constexpr std::string_view Characters = "\"\\/\b\f\n\r\t";
        const char escape = m_place < m_line.size() ? m_line[m_place++] : '\0';
        if (const std::size_t found = Escapes.find(escape);
            found != std::string_view::npos && escape != '\0') {
            text += Characters[found];
        } else if (escape == 'u') {
            std::u16string units(1, ReadUnit());
            if (units.front() >= 0xD800 && units.front() < 0xDC00 && Take("\\u")) {
                units += ReadUnit();
            }
            text += unicode::Utf8FromWide(units);
        } else {
            Fail("this escape does not exist");
        }
    }

    char16_t ReadUnit() {
        std::string_view digits = m_line.substr(m_place, 4);
        const auto high = TakeByte(digits);
        const auto low = TakeByte(digits);
        if (!high || !low) {
            Fail("four hexadecimal digits are missing");
        }
        m_place += 4;
        return static_cast<char16_t>(*high << 8 | *low);
    }

    std::string_view ReadName() {
        Expect('"');
        const std::size_t start = m_place;
        m_place = m_line.find_first_of("\"\\", start);
        if (m_place == std::string_view::npos) {
            m_place = m_line.size();
        }
        const std::string_view name = m_line.substr(start, m_place - start);
        Expect('"');
        return name;
    }

    Value ReadList() {
        Enter();
        Expect('[');
        List list;
        while (Next() != ']') {
            if (!list.empty()) {
                Expect(',');
            }
            list.push_back(Read());
        }
        ++m_place;
        --m_depth;
        return {std::move(list)};
    }

    Value ReadObject() {
        Enter();
        const std::size_t start = m_place;
        Expect('{');
        Structure fields;
        while (Next() != '}') {
            if (!fields.empty()) {
                Expect(',');
                SkipBlanks();
            }
            const std::string_view name = ReadName();
            Expect(':');
            fields.push_back({name, Read()});
        }
        ++m_place;
        --m_depth;
        if (fields.empty() || !fields.front().name.starts_with('$')) {
            return {std::move(fields)};
        }
        std::optional<Value> value = Special(fields);
        if (!value) {
            m_place = start;
            Fail("this is no value of a recording");
        }
        return std::move(*value);
    }

    void Enter() {
        if (++m_depth > DeepestNesting) {
            Fail("values are nested too deeply");
        }
    }

    /// What plain JSON has no form for: the name of the first field says what it is.
    static std::optional<Value> Special(const Structure& fields);

    std::string_view m_line;
    std::size_t m_place = 0;
    unsigned m_depth = 0;
};

template <class T>
std::optional<Value> FloatingOf(std::string_view text) {
    T number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, problem] = std::from_chars(text.data(), end, number);
    return problem == std::errc() && stop == end ? std::optional(Value{number}) : std::nullopt;
}

std::optional<Value> HexadecimalOf(std::string_view digits) {
    std::uint64_t number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, problem] = std::from_chars(digits.data(), end, number, 16);
    return problem == std::errc() && stop == end
               ? std::optional(Value{Number{static_cast<std::int64_t>(number), true}})
               : std::nullopt;
}

std::optional<Value> BytesOf(std::string_view digits) {
    Bytes bytes;
    bytes.reserve(digits.size() / 2);
    while (!digits.empty()) {
        const auto byte = TakeByte(digits);
        if (!byte) {
            return std::nullopt;
        }
        bytes.push_back(std::byte{static_cast<unsigned char>(*byte)});
    }
    return Value{std::move(bytes)};
}

std::optional<Value> UnitsOf(std::string_view digits) {
    std::u16string text;
    while (!digits.empty()) {
        const auto high = TakeByte(digits);
        const auto low = TakeByte(digits);
        if (!high || !low) {
            return std::nullopt;
        }
        text += static_cast<char16_t>(*high << 8 | *low);
    }
    return Value{std::move(text)};
}

/// The places of its hyphens do not matter.
std::optional<Value> GuidOf(std::string text) {
    std::erase(text, '-');
    std::string_view digits = text;
    std::array<std::uint32_t, 16> bytes{};
    for (std::uint32_t& byte : bytes) {
        const auto taken = TakeByte(digits);
        if (!taken) {
            return std::nullopt;
        }
        byte = *taken;
    }
    if (!digits.empty()) {
        return std::nullopt;
    }
    platform::Guid guid{.data1 = bytes[0] << 24 | bytes[1] << 16 | bytes[2] << 8 | bytes[3],
                        .data2 = static_cast<std::uint16_t>(bytes[4] << 8 | bytes[5]),
                        .data3 = static_cast<std::uint16_t>(bytes[6] << 8 | bytes[7]),
                        .data4 = {}};
    std::ranges::transform(bytes.begin() + 8, bytes.end(), guid.data4,
                           [](std::uint32_t byte) { return static_cast<std::uint8_t>(byte); });
    return Value{guid};
}

std::optional<Value> HandleOf(std::string_view kindName, const Structure& fields) {
    constexpr std::string_view Predefined[] = {"null", "invalid", "HKLM", "HKCU"};
    HandleName handle;
    std::size_t kind = 0;
    while (RowOf(HandleKind{static_cast<std::uint8_t>(kind)}).name != kindName) {
        if (++kind > static_cast<std::size_t>(HandleKind::TraceProvider)) {
            return std::nullopt;
        }
    }
    handle.kind = HandleKind{static_cast<std::uint8_t>(kind)};
    if (const Value* const number = Find(fields, "n"); number != nullptr) {
        const auto* const held = std::get_if<Number>(&number->held);
        if (held == nullptr || held->value <= 0 || held->value > UINT32_MAX) {
            return std::nullopt;
        }
        handle.number = static_cast<std::uint32_t>(held->value);
    } else if (const Value* const object = Find(fields, "on"); object != nullptr) {
        const auto* const held = std::get_if<std::u16string>(&object->held);
        if (held == nullptr) {
            return std::nullopt;
        }
        handle.openedOn = *held;
    } else if (const Value* const name = Find(fields, "is"); name != nullptr) {
        const auto* const held = std::get_if<std::u16string>(&name->held);
        const auto* const found = std::ranges::find_if(Predefined, [&](std::string_view each) {
            return held != nullptr && std::ranges::equal(each, *held, {}, [](char c) { return char16_t(c); });
        });
        if (found == std::end(Predefined)) {
            return std::nullopt;
        }
        handle.predefined = *found;
    }
    return Value{std::move(handle)};
}

std::optional<Value> Reader::Special(const Structure& fields) {
    const std::string_view name = fields.front().name;
    const auto* const held = std::get_if<std::u16string>(&fields.front().value.held);
    if (held == nullptr || (fields.size() > 1 && name != "$handle")) {
        return std::nullopt;
    }
    const std::string text = unicode::Utf8FromWide(*held);
    if (name == "$bytes") {
        return BytesOf(text);
    }
    if (name == "$hex") {
        return HexadecimalOf(text);
    }
    if (name == "$handle") {
        return HandleOf(text, fields);
    }
    if (name == "$guid") {
        return GuidOf(text);
    }
    if (name == "$utf16") {
        return UnitsOf(text);
    }
    return name == "$float"    ? FloatingOf<float>(text)
           : name == "$double" ? FloatingOf<double>(text)
                               : std::nullopt;
}

} // namespace

Value ParsedJson(std::string_view line) {
    return Reader(line).Whole();
}

} // namespace observer
