// The command lines of `machine`.
#include "options.h"

#include <CLI/CLI.hpp>

namespace tool {

void AddMachineCommands(CLI::App&, Options&) {}

} // namespace tool
