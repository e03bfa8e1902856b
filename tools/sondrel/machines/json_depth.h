// How deep a JSON text nests, told before it is parsed: a parser's stack ends somewhere.
#pragma once

#include <string_view>

namespace tool {

/// Deeper than any document of the library's and any profile. What is no JSON is the parser's affair.
bool NestsTooDeep(std::string_view text);

/// The document, which is discarded where the text is none or nests too deep.
template <class Json>
Json ParsedJson(std::string_view text) {
    return NestsTooDeep(text) ? Json(Json::value_t::discarded) : Json::parse(text, nullptr, false);
}

} // namespace tool
