// JSON documents, laid out for the eye.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// The document in lines of at most `columns` characters: what fits stands on one line, what does not is
/// indented member by member. A text that is no JSON stands on one line as it is, and is called so.
std::vector<std::string> DocumentLines(std::string_view text, std::size_t columns);

} // namespace tool
