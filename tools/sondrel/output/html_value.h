// Values in HTML. Whatever a reading holds, none of it becomes markup.
#pragma once

#include "commands/commands.h"

#include <string>
#include <string_view>

namespace tool {

/// Well-formed, without control characters, with `& < > " '` as entities.
std::string Escaped(std::string_view text);

/// What one reading says: a value with its unit, a nested table for a document, or what is wrong.
std::string HtmlOf(const Reading& reading);

} // namespace tool
