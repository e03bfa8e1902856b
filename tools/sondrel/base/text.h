// Strings as the tool takes and prints them: UTF-8.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// The text with whatever is ill-formed in it replaced by U+FFFD.
std::string WellFormed(std::string_view text);

/// The width of the string in columns of a terminal.
std::size_t Columns(std::string_view text);

/// For one line of a terminal: writes control characters as \xNN.
std::string OnOneLine(std::string_view text);

/// At most `columns` columns; ends in "..." if something was cut.
std::string Shortened(std::string_view text, std::size_t columns);

/// A well-formed string in lines of at most `columns` columns, broken at blanks where possible.
std::vector<std::string> Wrapped(std::string_view text, std::size_t columns);

/// Two lower-case digits for each byte.
std::string Hex(std::span<const std::uint8_t> bytes);

/// The bytes of a hexadecimal string; blanks, colons and hyphens between them are ignored.
std::optional<std::vector<std::uint8_t>> BytesOfHex(std::string_view text);

/// Whole numbers in full, others with seven digits, which is what single precision has.
std::string PlainNumber(double number);

/// The pieces between separators: one more than there are separators.
std::vector<std::string_view> Split(std::string_view text, char separator);

/// The candidate that a mistyped name most probably meant, or the empty string.
std::string_view Nearest(std::string_view name, std::span<const std::string_view> candidates);

/// The ASCII letters in lower case.
std::u16string Lower(std::u16string_view text);

std::filesystem::path PathOf(std::string_view utf8);
std::string Utf8Of(const std::filesystem::path& path);

} // namespace tool
