// Removes from a recording what a person or a machine could be recognised by.
#pragma once

#include <string>

namespace tool {

/// The whole text of a recording with everything of that kind replaced in its headers, inputs and outputs, and marked as
/// redacted. Results and buffers of exports are left as they are: they have to be computed again. Throws
/// observer::RecordingError.
std::string RedactedCalls(const std::string& text);

/// The text with the results and buffers of another recording of the same export calls, part by part. Throws Error where
/// the calls are not the same.
std::string WithResultsOf(const std::string& text, const std::string& replayed);

} // namespace tool
