// Strings of Windows.
#pragma once

#include <string>

namespace tool {

std::string Utf8OfSystem(const wchar_t* text);

/// What an error code means, in the system's words.
std::string ReasonOf(unsigned long code);

} // namespace tool
