// Colour, where somebody sees it.
#pragma once

#include "commands/options.h"
#include "exports/classify.h"
#include "terminal/terminal.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tool {

enum class Style : std::uint8_t {
    Plain,
    Title,
    Quiet,   // what is less than the value: units, remarks, readings that are not there
    Warning, // in part, or not yet
    Bad,
    Count
};

/// How an answer of this worth is shown.
Style StyleOf(Status status);

class Paint {
public:
    /// Coloured on a terminal that takes it, unless the user says otherwise: by --colour, or by NO_COLOR.
    Paint(ColourWish wish, terminal::Stream stream);

    [[nodiscard]] std::string operator()(Style style, std::string_view text) const;

private:
    bool m_coloured;
};

} // namespace tool
