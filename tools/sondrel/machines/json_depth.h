// JSON documents that nest no deeper than a stack allows.
#pragma once

#include "machine/profile/profile_document.h"

#include <string_view>

namespace tool {

/// The document, which is discarded where the text is none or nests too deep.
template <class Json>
Json ParsedJson(std::string_view text) {
    return machine::NestsTooDeep(text) ? Json(Json::value_t::discarded) : Json::parse(text, nullptr, false);
}

} // namespace tool
