// A reading in words, as a report, the watch and the page show it.
#pragma once

#include "readings/reading.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tool {

/// In UTF-8 without control characters. The parts follow each other, separated by a blank.
struct Readable {
    /// The value, or what is shown instead of one.
    std::string value;
    std::string unit;
    /// In brackets: the value in another form, and what it means.
    std::string remark;
};

/// No part is longer than `columns`.
Readable ReadableOf(const Reading& reading, std::size_t columns);

/// "0x00010203"
std::string HexadecimalOf(std::int64_t number);

/// The characters that are packed into the number, the first in the highest byte; empty if they are not printable.
std::string LettersOf(std::int64_t number);

/// All parts on one line.
std::string OnOneLine(const Readable& readable);

/// The finite number that the text is; nothing for any other text.
std::optional<double> NumberIn(std::string_view text);

} // namespace tool
