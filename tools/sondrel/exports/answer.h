// What one call gave.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace tool {

/// What is printed for a buffer that the library has not written to.
inline constexpr std::string_view BufferUntouched = "(buffer untouched)";

struct Answer {
    /// The bare result: a number in decimal, a text in UTF-8, bytes in hexadecimal. Empty where the call gives
    /// nothing.
    std::string bare;
    /// The number behind it, where the result is one.
    std::variant<std::monostate, std::int64_t, double> number;
    /// The code that a call returns beside the bytes it reads: 0, or the system's error.
    std::uint32_t code = 0;
    bool untouched = false;
    /// What is wrong with the way in which the library wrote its answer; empty as a rule.
    std::string fault;
};

} // namespace tool
