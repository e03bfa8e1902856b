// How wide a terminal shows a character.
#pragma once

#include <cstddef>

namespace tool {

/// 0 for what joins the character before it, 2 for East Asian wide characters and emoji, 1 for all else.
std::size_t ColumnsOf(char32_t character);

} // namespace tool
