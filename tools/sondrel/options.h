// The command line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tool {

enum class Command : std::uint8_t { None, List, Call, Report };

struct Options {
    Command command = Command::None;
    /// `call`: the export. `list`: the export to be told in full, or empty.
    std::string name;
    std::vector<std::string> arguments;
    bool json = false;

    std::string library;
    std::optional<std::string> machine;
    std::optional<std::string> store;
    bool trace = false;
    std::uint8_t initCom = 1;
    bool session = true;
};

/// Throws Trouble for a command line that is none. Command::None when help or the version was asked for and
/// has been printed.
Options ParseCommandLine(const std::vector<std::string>& arguments);

} // namespace tool
