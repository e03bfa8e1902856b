// Colour on terminals.
#pragma once

#include "terminal/terminal.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tool {

enum class ColourMode : std::uint8_t { Auto, Always, Never };

enum class Style : std::uint8_t {
    Plain,
    Title,
    Quiet,   // less important than the value: units, remarks, absent readings
    Warning, // partly failed, or not read
    Bad,
    Count
};

class Paint {
public:
    /// Auto: coloured on a terminal that supports it, unless the environment variable NO_COLOR is set.
    Paint(ColourMode mode, terminal::Stream stream);

    [[nodiscard]] std::string operator()(Style style, std::string_view text) const;

private:
    bool m_coloured;
};

} // namespace tool
