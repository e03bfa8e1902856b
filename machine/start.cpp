// A machine whose storage is a file, and the default one.
#include "machine/machine.h"

#include "machine/models/storage/storage.h"
#include "machine/models/storage/store.h"
#include "machine/profile/built_in_machines.h"
#include "observer/recording/replay.h"
#include "observer/recording/start.h"
#include "observer/recording/system.h"

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

void StartNamed(const std::string& name, const char* store) {
    if (observer::IsRecordingName(name)) {
        if (store != nullptr && std::string_view(store) != ":memory:") {
            throw StoreError(name + ": a recording has no store");
        }
        observer::StartPrintingReplay(name, "simulated machine");
        return;
    }
    Profile profile = LoadProfile(name);
    const std::string path = store != nullptr ? store : DefaultStorePath(profile);
    Start(std::move(profile), path);
    observer::SetReplay(nullptr);
}

/// In a replay only what is traced and logged reaches the machine, and there is nothing for it to save.
///
/// If its state has no place, the machine forgets it at the end; if its state cannot be read, whatever is stored fails
/// instead of being absent. Either is reported once.
void StartDefault() {
    Profile profile = LoadProfile(std::string(BuiltInMachineTexts().front().name));
    if (observer::IsReplaying()) {
        Start(std::move(profile), ":memory:");
        return;
    }
    try {
        const std::string path = DefaultStorePath(profile);
        Start(profile, path);
    } catch (const StoreError& problem) {
        std::cerr << "simulated machine: " << problem.what()
                  << (problem.IsDamage() ? "; its registry, files and firmware variables fail\n"
                                         : "; its state is not saved\n");
        Storage storage = OpenStorage(profile, ":memory:");
        if (problem.IsDamage()) {
            storage.store->FailFromNowOn();
        }
        Start(std::move(profile), std::move(storage));
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

void observer::system::StartMachine(const std::string& name, const std::string& store) {
    machine::StartNamed(name.empty() ? std::string(machine::BuiltInMachineTexts().front().name) : name,
                        store.empty() ? nullptr : store.c_str());
}
