#include "readings/host.h"

#include "base/error.h"
#include "base/text.h"
#include "observer/recording/system.h"
#include "recordings/replay.h"

#include <iostream>
#include <vector>

namespace tool {
namespace {

void RefuseMachineOptions(const HostOptions& options) {
    if (options.trace) {
        throw Error(std::string(host_system::WhereTraceLinesAre()));
    }
    if (options.machine || options.store) {
        throw Error(std::string(options.machine ? "--machine" : "--store") +
                    " is for the simulated machine; this library reads the real one");
    }
}

bool IsReplay(const HostOptions& options) {
    return options.machine && IsRecordingName(*options.machine);
}

Library::Form FormFor(const HostOptions& options) {
    return IsReplay(options) ? Library::Form::Observed : options.form;
}

/// What the library asks for beyond the recording is seen immediately; the answers may be cached ones.
void PrintDifference(void*, const VeskObserver_Difference* difference) {
    if (difference->kind == VESK_OBSERVER_CALL_DIFFERS) {
        std::cerr << "sondrel: " << TextOf(*difference) << '\n';
    }
}

} // namespace

std::optional<std::string> FromEnvironment(const char* variable) {
    std::string value = observer::system::Environment(variable);
    return value.empty() ? std::nullopt : std::optional(std::move(value));
}

HostOptions WithObserver(HostOptions options) {
    options.form = Library::Form::Observed;
    return options;
}

Host::Host(const HostOptions& options)
    : library(options.library, FormFor(options)), machine(SimulatedMachine::NextTo(library.File())) {
    if (IsReplay(options)) {
        if (options.store) {
            throw Error("--store is for the simulated machine; a recording stores nothing");
        }
        machineName = *options.machine;
        recorded = true;
        StartReplay(library, machineName, 0, PrintDifference, nullptr);
        return;
    }
    if (!machine) {
        RefuseMachineOptions(options);
        machineName = "this computer";
        return;
    }
    machineName = options.machine.value_or(machine->DefaultName());
    if (options.machine || options.store) {
        machine->Start(machineName, options.store);
    }
    if (options.trace) {
        machine->Trace();
    }
}

const Export& ExportNamed(std::string_view name) {
    if (const Export* const row = FindExport(name); row != nullptr) {
        return *row;
    }
    std::vector<std::string_view> names;
    for (const Export& row : AllExports()) {
        names.push_back(row.name);
    }
    const std::string_view nearest = Nearest(name, names);
    throw Error("there is no export \"" + OnOneLine(name) + "\"" +
                (nearest.empty() ? "; sondrel list shows all of them"
                                 : "; did you mean " + std::string(nearest) + "?"));
}

Address AddressOf(const Library& library, const Export& row) {
    const Address address = library.Find(row.name);
    if (address == nullptr) {
        throw Error("this library does not export " + std::string(row.name));
    }
    return address;
}

} // namespace tool
