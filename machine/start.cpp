// A machine whose storage is a file, and the default one.
#include "machine/machine.h"
#include "machine/models/storage/open_storage.h"
#include "machine/models/storage/store_error.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <utility>

namespace machine {

void Start(Profile profile, const std::string& storePath) {
    Storage storage = OpenStorage(profile, storePath);
    Start(std::move(profile), std::move(storage));
}

/// Without a directory for its state the machine forgets it at the end, and says so once.
void StartDefault() {
    Profile profile = LoadProfile(BuiltInMachines().front());
    try {
        const std::string path = DefaultStorePath(profile);
        Start(profile, path);
    } catch (const StoreError& problem) {
        std::cerr << "simulated machine: " << problem.what() << "; its state is not kept\n";
        Start(std::move(profile), ":memory:");
    }
}

std::string DefaultStorePath(const Profile& profile) {
    namespace fs = std::filesystem;
    fs::path directory;
    if (const char* state = std::getenv("XDG_STATE_HOME"); state != nullptr && *state == '/') {
        directory = state;
    } else if (const char* home = std::getenv("HOME"); home != nullptr && *home == '/') {
        directory = fs::path(home) / ".local" / "state";
    } else {
        throw StoreError("no directory for the machine's state: neither XDG_STATE_HOME nor HOME is set");
    }
    directory /= "vesk-sondrel";
    std::error_code problem;
    fs::create_directories(directory, problem);
    if (problem) {
        throw StoreError(directory.string() + ": " + problem.message());
    }
    char digest[17];
    std::snprintf(digest, sizeof digest, "%016llx", static_cast<unsigned long long>(profile.digest));
    return (directory / (profile.name + "-" + digest + ".sqlite")).string();
}

} // namespace machine
