#include "base/text.h"

#include "base/error.h"
#include "unicode/column_width.h"
#include "unicode/utf.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <numeric>
#include <system_error>

namespace tool {
namespace {

using unicode::AppendUtf8;
using unicode::ColumnsOf;
using unicode::TakeUtf8;

int DigitOf(char character) {
    if (character >= '0' && character <= '9') {
        return character - '0';
    }
    if (character >= 'a' && character <= 'f') {
        return character - 'a' + 10;
    }
    return character >= 'A' && character <= 'F' ? character - 'A' + 10 : -1;
}

/// Removes as many characters from the front of the string as fit, and returns them.
std::string TakeColumns(std::string_view& text, std::size_t columns) {
    std::string piece;
    while (!text.empty()) {
        std::string_view rest = text;
        const char32_t next = TakeUtf8(rest);
        const std::size_t width = ColumnsOf(next);
        if (width > columns) {
            break;
        }
        columns -= width;
        AppendUtf8(piece, next);
        text = rest;
    }
    return piece;
}

std::string LowerCase(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
    });
    return lower;
}

/// Levenshtein distance.
std::size_t Distance(std::string_view left, std::string_view right) {
    std::vector<std::size_t> row(right.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= left.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= right.size(); ++j) {
            const std::size_t replaced = diagonal + (left[i - 1] == right[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, replaced});
        }
    }
    return row.back();
}

} // namespace

std::string WellFormed(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        AppendUtf8(result, TakeUtf8(text));
    }
    return result;
}

std::size_t Columns(std::string_view text) {
    std::size_t columns = 0;
    while (!text.empty()) {
        if (static_cast<unsigned char>(text.front()) < 0x80) {
            text.remove_prefix(1);
            ++columns;
        } else {
            columns += ColumnsOf(TakeUtf8(text));
        }
    }
    return columns;
}

std::string OnOneLine(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const char32_t code = TakeUtf8(text);
        if (code < 0x20 || (code >= 0x7F && code < 0xA0)) {
            const auto byte = static_cast<std::uint8_t>(code);
            result += "\\x" + Hex({&byte, 1});
        } else {
            AppendUtf8(result, code);
        }
    }
    return result;
}

std::string Shortened(std::string_view text, std::size_t columns) {
    if (text.size() <= columns || Columns(text) <= columns) {
        return std::string(text);
    }
    constexpr std::string_view Mark = "...";
    const std::size_t available = columns - std::min(columns, Mark.size());
    return TakeColumns(text, available).append(Mark.substr(0, columns));
}

std::vector<std::string> Wrapped(std::string_view text, std::size_t columns) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        std::string_view rest = text;
        std::string line = TakeColumns(rest, columns);
        if (line.empty()) {
            AppendUtf8(line, TakeUtf8(rest)); // wider than the line itself
        }
        const std::size_t blank = line.rfind(' ');
        if (!rest.empty() && rest.front() != ' ' && blank != std::string::npos && blank != 0) {
            line.resize(blank);
            rest = text.substr(blank);
        }
        while (!rest.empty() && rest.front() == ' ') {
            rest.remove_prefix(1);
        }
        lines.push_back(std::move(line));
        text = rest;
    }
    return lines;
}

std::string Hex(std::span<const std::uint8_t> bytes) {
    constexpr std::string_view Digits = "0123456789abcdef";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const std::uint8_t byte : bytes) {
        text.push_back(Digits[byte >> 4]);
        text.push_back(Digits[byte & 15]);
    }
    return text;
}

std::optional<std::vector<std::uint8_t>> BytesOfHex(std::string_view text) {
    std::vector<std::uint8_t> bytes;
    int high = -1;
    for (const char character : text) {
        const int digit = DigitOf(character);
        const bool between = high < 0 && (character == ' ' || character == ':' || character == '-');
        if (between) {
            continue;
        }
        if (digit < 0) {
            return std::nullopt;
        }
        if (high < 0) {
            high = digit;
        } else {
            bytes.push_back(static_cast<std::uint8_t>(high * 16 + digit));
            high = -1;
        }
    }
    return high < 0 ? std::optional(std::move(bytes)) : std::nullopt;
}

std::string PlainNumber(double number) {
    constexpr double LargestWhole = 9007199254740992.0; // up to here every whole number is a double
    constexpr int Digits = 7;
    char text[32];
    const bool whole = std::abs(number) < LargestWhole && number == std::trunc(number);
    const auto [end, problem] =
        whole ? std::to_chars(text, text + sizeof text, static_cast<std::int64_t>(number))
              : std::to_chars(text, text + sizeof text, number, std::chars_format::general, Digits);
    return problem == std::errc{} ? std::string(text, end) : "NaN";
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    for (std::size_t end = text.find(separator); end != std::string_view::npos; end = text.find(separator)) {
        pieces.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    pieces.push_back(text);
    return pieces;
}

std::string_view Nearest(std::string_view name, std::span<const std::string_view> candidates) {
    constexpr std::size_t LongestName = 64; // longer ones are no mistyped names
    if (name.empty() || name.size() > LongestName) {
        return {};
    }
    const std::string wanted = LowerCase(name);
    std::string_view best;
    std::size_t bestDistance = std::max<std::size_t>(3, name.size() / 3) + 1;
    for (const std::string_view candidate : candidates) {
        const std::string lower = LowerCase(candidate);
        std::size_t distance = Distance(wanted, lower);
        if (wanted.size() >= 4 && lower.find(wanted) != std::string::npos) {
            distance = std::min<std::size_t>(distance, 3); // part of a name
        }
        if (distance < bestDistance) {
            best = candidate;
            bestDistance = distance;
        }
    }
    return best;
}

std::u16string Lower(std::u16string_view text) {
    std::u16string lower(text);
    for (char16_t& each : lower) {
        each = each >= u'A' && each <= u'Z' ? static_cast<char16_t>(each - u'A' + u'a') : each;
    }
    return lower;
}

std::string BecauseOfErrno() {
    return errno == 0 ? std::string() : ": " + std::generic_category().message(errno);
}

std::filesystem::path PathOf(std::string_view utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

std::string Utf8Of(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

} // namespace tool
