#include "observer/recording/json.h"

#include "unicode/utf.h"

#include <algorithm>
#include <charconv>
#include <concepts>
#include <cstring>

namespace observer {
namespace {

constexpr std::string_view Digits = "0123456789abcdef";

void AppendByte(std::string& line, unsigned byte) {
    line += Digits[byte >> 4 & 0xF];
    line += Digits[byte & 0xF];
}

void AppendHex(std::string& line, std::uint64_t number) {
    char digits[16];
    line.append(digits, std::to_chars(digits, std::end(digits), number, 16).ptr);
}

/// One character of a string in quotes.
void AppendQuoted(std::string& line, char32_t character) {
    if (character == U'"' || character == U'\\') {
        line += '\\';
        line += static_cast<char>(character);
    } else if (character < 0x20 || character == 0x7F) {
        line += "\\u00";
        AppendByte(line, character);
    } else {
        unicode::AppendUtf8(line, character);
    }
}

bool IsWellFormed(std::u16string_view text) {
    while (!text.empty()) {
        const bool is = text.front() == unicode::Replacement;
        if (unicode::TakeUtf16(text) == unicode::Replacement && !is) {
            return false;
        }
    }
    return true;
}

struct Writer {
    std::string& line;

    void operator()(std::monostate) const { line += "null"; }

    void operator()(bool flag) const { line += flag ? "true" : "false"; }

    void operator()(const Number& number) const {
        if (!number.hexadecimal) {
            line += std::to_string(number.value);
            return;
        }
        Open("$hex");
        line += '"';
        AppendHex(line, static_cast<std::uint64_t>(number.value));
        line += "\"}";
    }

    void operator()(float number) const { Floating("$float", number); }

    void operator()(double number) const { Floating("$double", number); }

    void operator()(const std::u16string& text) const {
        if (IsWellFormed(text)) {
            std::u16string_view rest = text;
            line += '"';
            while (!rest.empty()) {
                AppendQuoted(line, unicode::TakeUtf16(rest));
            }
            line += '"';
            return;
        }
        Open("$utf16"); // JSON has no unpaired surrogates
        line += '"';
        for (const char16_t unit : text) {
            AppendByte(line, unit >> 8);
            AppendByte(line, unit);
        }
        line += "\"}";
    }

    void operator()(const Bytes& bytes) const {
        Open("$bytes");
        line += '"';
        for (const std::byte byte : bytes) {
            AppendByte(line, std::to_integer<unsigned>(byte));
        }
        line += "\"}";
    }

    /// As it is written: the first three numbers with their highest byte first.
    void operator()(const platform::Guid& guid) const {
        Open("$guid");
        line += '"';
        for (const unsigned shift : {24u, 16u, 8u, 0u}) {
            AppendByte(line, guid.data1 >> shift);
        }
        for (const unsigned number : {guid.data2, guid.data3}) {
            line += '-';
            AppendByte(line, number >> 8);
            AppendByte(line, number);
        }
        for (std::size_t i = 0; i < std::size(guid.data4); ++i) {
            line += i == 0 || i == 2 ? "-" : "";
            AppendByte(line, guid.data4[i]);
        }
        line += "\"}";
    }

    void operator()(const HandleName& handle) const {
        Open("$handle");
        Quote(RowOf(handle.kind).name);
        if (!handle.predefined.empty()) {
            AppendName(line, "is");
            Quote(handle.predefined);
        } else if (handle.number != 0) {
            AppendName(line, "n");
            line += std::to_string(handle.number);
        } else if (!handle.openedOn.empty()) {
            AppendName(line, "on");
            (*this)(handle.openedOn);
        }
        line += '}';
    }

    void operator()(const List& list) const {
        line += '[';
        for (const Value& item : list) {
            line += line.back() == '[' ? "" : ",";
            std::visit(*this, item.held);
        }
        line += ']';
    }

    void operator()(const Structure& fields) const {
        line += '{';
        for (const Field& field : fields) {
            AppendName(line, field.name);
            std::visit(*this, field.value.held);
        }
        line += '}';
    }

    void Open(std::string_view name) const {
        line += '{';
        AppendName(line, name);
    }

    void Quote(std::string_view ascii) const { line.append(1, '"').append(ascii).append(1, '"'); }

    /// The shortest digits that give the same number.
    void Floating(std::string_view name, std::floating_point auto number) const {
        char digits[64];
        const auto end = std::to_chars(digits, std::end(digits), number).ptr;
        Open(name);
        Quote({digits, end});
        line += '}';
    }
};

} // namespace

void AppendJson(std::string& line, const Value& value) {
    std::visit(Writer{line}, value.held);
}

void AppendName(std::string& line, std::string_view name) {
    line += line.empty() || line.back() == '{' ? "\"" : ",\"";
    line.append(name).append("\":");
}

} // namespace observer
