#include "base/text.h"
#include "base/trouble.h"
#include "commands/commands.h"

#include <iostream>
#include <vector>

namespace tool {
namespace {

/// These options speak to the simulated machine; the real one is as it is.
void RefuseForRealMachine(const Options& options) {
    if (options.trace) {
        throw Trouble(std::string(host_system::WhereTraceLinesAre()));
    }
    if (options.machine || options.store) {
        throw Trouble(std::string(options.machine ? "--machine" : "--store") +
                      " is for the simulated machine; this library reads the real one");
    }
}

} // namespace

Host::Host(const Options& options)
    : library(options.library), machine(SimulatedMachine::Beside(library.File())) {
    if (!machine) {
        RefuseForRealMachine(options);
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
    throw Trouble(
        "there is no export \"" + OnOneLine(name) + "\"" +
        (nearest.empty() ? "; sondrel list tells them all" : "; did you mean " + std::string(nearest) + "?"));
}

Address AddressOf(const Library& library, const Export& row) {
    const Address address = library.Find(row.name);
    if (address == nullptr) {
        throw Trouble("this library does not export " + std::string(row.name));
    }
    return address;
}

void OpenSession(std::optional<Session>& session, const Host& host) {
    session.emplace(host.library);
    if (!session->IsOpen()) {
        std::cerr << "sondrel: the driver session could not be opened; readings that need it will fail\n";
    }
}

} // namespace tool
