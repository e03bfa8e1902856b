// Under whom this process runs, and what it may do. Nothing here changes anything.
#pragma once

#include <filesystem>
#include <string>

namespace tool::host_system {

struct ProcessFacts {
    std::string user; // empty if the system does not say
    std::string session;
    /// In a session where a user sees windows. Services are not.
    bool isInteractive = true;
    bool isElevated = false;
};

ProcessFacts FactsOfProcess();

/// Whether this process may create files in the directory; false if there is none. Creates nothing.
bool IsWritableDirectory(const std::filesystem::path& directory);

} // namespace tool::host_system
