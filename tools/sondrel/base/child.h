// This program once more, as another process.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tool::host_system {

/// A variable of the environment, in addition to this process's own.
struct Variable {
    std::string name;
    std::string value;
};

enum class ChildOutput : std::uint8_t { Shared, Dropped };

/// Runs this program and waits for its end. Returns its exit status; nothing if it died, could not be started, or took
/// longer than the time and was killed.
std::optional<int> RunOneself(const std::vector<std::string>& arguments,
                              const std::vector<Variable>& variables, ChildOutput output,
                              std::chrono::seconds time);

} // namespace tool::host_system
