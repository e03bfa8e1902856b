// Numbers of every length, made so that a part of one, or a mixture of two, is none of them.
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

namespace torture {

/// The first digits give away the length; all others are the writer's own.
inline constexpr std::string_view FirstDigits[] = {"7", "6", "5", "4", "3", "9", "8", "20", "21", "1"};

inline constexpr unsigned Forms = 2 * std::size(FirstDigits); // with a minus sign and without
inline constexpr unsigned MaxWriters = 10;

inline std::int32_t NumberOf(unsigned writer, unsigned form) {
    const std::size_t length = form % std::size(FirstDigits) + 1;
    std::string text(FirstDigits[length - 1]);
    text.resize(length, static_cast<char>('0' + writer));
    const std::int32_t number = std::stoi(text);
    return form < std::size(FirstDigits) ? number : -number;
}

/// Who wrote a number; the first writer where the number is too short to say. Nothing for any other number.
inline std::optional<unsigned> WriterOf(std::int32_t number, unsigned writers) {
    for (unsigned writer = 0; writer < writers; ++writer) {
        for (unsigned form = 0; form < Forms; ++form) {
            if (NumberOf(writer, form) == number) {
                return writer;
            }
        }
    }
    return std::nullopt;
}

} // namespace torture
