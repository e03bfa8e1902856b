// A reading in words: what a report, the watch and the page show of it.
#pragma once

#include "commands/commands.h"

#include <cstddef>
#include <string>

namespace tool {

/// In UTF-8 without control characters. The pieces follow each other with a blank between them.
struct Readable {
    /// The value, or what is told in place of one.
    std::string value;
    std::string unit;
    /// In brackets: the value read another way, and what it means.
    std::string remark;
};

/// No piece is longer than `columns`.
Readable ReadableOf(const Reading& reading, std::size_t columns);

/// All pieces on one line.
std::string OnOneLine(const Readable& readable);

/// Whether the reading gave what it is there for, in whole or in part.
bool HasValue(const Reading& reading);

/// The number that a place of a list is; nothing for what is none, or not finite.
std::optional<double> NumberIn(std::string_view place);

} // namespace tool
