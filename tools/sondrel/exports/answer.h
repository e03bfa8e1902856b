// What one call returned.
#pragma once

#include "exports/description.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace tool {

using exports::AllExports;
using exports::Display;
using exports::Export;
using exports::FindExport;
using exports::Group;
using exports::InReport;
using exports::Signature;
using exports::SpecialValue;

/// Printed for a buffer that the library has not written to.
inline constexpr std::string_view BufferUntouched = "(buffer untouched)";

struct Answer {
    /// The result: a number in decimal, a string in UTF-8, bytes in hexadecimal. Empty where the export returns
    /// nothing.
    std::string text;
    /// The same as a number, where the result is one.
    std::variant<std::monostate, std::int64_t, double> number;
    /// The code that a call returns besides the bytes it reads: 0, or the system's error.
    std::uint32_t code = 0;
    bool untouched = false;
    /// How the library broke the rules of its buffer; empty if it did not.
    std::string fault;
};

} // namespace tool
