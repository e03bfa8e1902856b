// Files as commands read them.
#pragma once

#include <string>

namespace tool {

/// The whole file. Throws Error.
std::string ReadFile(const std::string& file);

} // namespace tool
