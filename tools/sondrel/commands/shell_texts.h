// Completion for shells and the manual page, made from the command line's own description.
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace tool {

/// `kind` is bash, zsh, powershell or man. Throws Error for any other.
std::string ShellText(const CLI::App& app, const std::string& kind);

} // namespace tool
