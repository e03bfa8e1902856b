// Under whom this process runs, on systems with user numbers.
#include "base/process_facts.h"

#include <pwd.h>
#include <unistd.h>

namespace tool::host_system {

ProcessFacts FactsOfProcess() {
    const passwd* const entry = getpwuid(geteuid());
    return {.user = entry != nullptr ? entry->pw_name : "",
            .session = std::to_string(getsid(0)),
            .isInteractive =
                true, // these systems have no session without a desktop that a reading could notice
            .isElevated = geteuid() == 0};
}

bool IsWritableDirectory(const std::filesystem::path& directory) {
    std::error_code problem;
    return std::filesystem::is_directory(directory, problem) && access(directory.c_str(), W_OK | X_OK) == 0;
}

} // namespace tool::host_system
