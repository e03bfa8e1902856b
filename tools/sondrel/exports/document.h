// JSON documents, laid out for the eye.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// Nothing for what is no JSON, or nested deeper than any document of the library's.
std::optional<nlohmann::ordered_json> ParseDocument(std::string_view text);

/// The document in lines of at most `columns` characters: what fits stands on one line, what does not is
/// indented member by member. A text that is no JSON stands on one line as it is, and is called so.
std::vector<std::string> DocumentLines(std::string_view text, std::size_t columns);

} // namespace tool
