// JSON documents as readable lines.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// Nothing for text that is not JSON, or is nested deeper than any document of the library.
std::optional<nlohmann::ordered_json> ParseDocument(std::string_view text);

/// The document in lines of at most `columns` characters: what fits is on one line, what does not is indented member by
/// member. Text that is not JSON is one line, with a note.
std::vector<std::string> DocumentLines(std::string_view text, std::size_t columns);

} // namespace tool
