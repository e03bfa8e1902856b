// How deep a JSON text nests, told before it is parsed: a parser's stack ends somewhere.
#pragma once

#include <string_view>

namespace tool {

/// Deeper than any document of the library's and any profile. What is no JSON is the parser's affair.
bool NestsTooDeep(std::string_view text);

} // namespace tool
