// The width of a character on a terminal.
#pragma once

#include "unicode/column_width_table.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace unicode {

/// 0 for a character that combines with the one before it, 2 for East Asian wide characters and emoji, else 1.
inline std::size_t ColumnsOf(char32_t character) {
    if (character < ColumnRanges[0].first) {
        return 1;
    }
    const auto* const range = std::ranges::lower_bound(ColumnRanges, character, {}, &ColumnRange::last);
    return range != std::end(ColumnRanges) && range->first <= character ? range->columns : 1;
}

} // namespace unicode
