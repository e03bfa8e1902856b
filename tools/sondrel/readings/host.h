// The library, and the machine that it reads.
#pragma once

#include "exports/answer.h"
#include "exports/library.h"
#include "machines/simulated_machine.h"
#include "observer/recording/variables.h"

#include <optional>
#include <string>
#include <string_view>

namespace tool {

/// Nothing for a variable that is not set or is empty.
std::optional<std::string> FromEnvironment(const char* variable);

/// What no option says, the environment may.
struct HostOptions {
    /// The library's file; empty for the one of this kit or build.
    std::string library = FromEnvironment("VESK_LIBRARY").value_or("");
    /// Where the library has two forms, the observed one.
    Library::Form form = Library::Form::Usual;
    /// Simulated machine: a built-in one or a profile, and the file that stores its state. Or a recording.
    std::optional<std::string> machine = FromEnvironment(observer::variable::Machine);
    std::optional<std::string> store = FromEnvironment(observer::variable::Store);
    /// Simulated machine: debug and event lines on standard error.
    bool trace = false;
};

/// With the observed library, which knows the causes of states.
HostOptions WithObserver(HostOptions options);

struct Host {
    /// Throws Error.
    explicit Host(const HostOptions& options);

    Library library;
    /// Nothing if the library reads the real machine.
    std::optional<SimulatedMachine> machine;
    std::string machineName;
    bool recorded = false;

    /// To follow the machine's name; empty for the real one.
    [[nodiscard]] const char* MachineKind() const {
        return recorded ? " (recorded)" : machine ? " (simulated)" : "";
    }
};

/// Throws Error with the nearest name for one that the library does not have.
const Export& ExportNamed(std::string_view name);

/// Throws Error for an export that this library lacks.
Address AddressOf(const Library& library, const Export& row);

} // namespace tool
