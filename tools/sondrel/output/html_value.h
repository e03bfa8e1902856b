// Values in HTML. No content of a reading becomes markup.
#pragma once

#include "readings/reading.h"

#include <string>
#include <string_view>

namespace tool {

/// Well-formed, without control characters, with `& < > " '` as entities.
std::string Escaped(std::string_view text);

/// Text of less importance.
std::string QuietHtml(std::string_view text);

/// A name that can be broken after each of its words.
std::string BreakableHtml(std::string_view name);

/// The class of the style sheet that shows a status.
std::string_view ClassOf(Status status);

/// A value with its unit, a nested table for a document, or the failure.
std::string HtmlOf(const Reading& reading);

} // namespace tool
