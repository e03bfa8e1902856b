#include "usage/open_window_record.h"

#include <array>
#include <charconv>

namespace sondrel {

std::u16string CpuUsageText(float cpuUsage) {
    // Sign, the 39 digits of the largest float, point and one digit.
    std::array<char, 42> text;
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), cpuUsage, std::chars_format::fixed, 1).ptr;
    return {text.data(), end};
}

} // namespace sondrel
