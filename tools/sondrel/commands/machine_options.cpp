// The command lines of `machine`.
#include "commands/machine_command.h"

#include <CLI/CLI.hpp>

namespace tool {

void AddMachineCommands(CLI::App& app, Options& options) {
    CLI::App* const machine =
        app.add_subcommand("machine", "Make, check and show profiles of simulated machines");
    machine->require_subcommand(1);

    CLI::App* const fresh = machine->add_subcommand("new", "Start a profile");
    fresh->add_option("FAMILY", options.name, "A family's code: AB, AR, CF, GL, KL, PC, WL")->type_name("");
    fresh->add_option("--from", options.from, "A built-in machine or another profile")
        ->type_name("NAME|FILE");
    fresh->add_option("--output,-o", options.output, "The new profile; a file that exists is not replaced")
        ->type_name("FILE");
    fresh->callback([&options] { options.run = NewMachine; });

    CLI::App* const from = machine->add_subcommand("from", "Make a profile of what a recording shows");
    from->add_option("RECORDING", options.name, "A recording, NAME.rec")->required()->type_name("");
    from->add_option("--output,-o", options.output, "The new profile; a file that exists is not replaced")
        ->type_name("FILE");
    from->callback([&options] { options.run = MachineFromRecording; });

    CLI::App* const check = machine->add_subcommand("check", "List all errors with their lines");
    check->add_option("NAME", options.files, "Profiles or built-in machines")->required()->type_name("");
    check->callback([&options] { options.run = CheckMachines; });

    CLI::App* const show = machine->add_subcommand("show", "Describe a machine in words");
    show->add_option("NAME", options.name, "A built-in machine or a profile")->required()->type_name("");
    show->callback([&options] { options.run = ShowMachine; });

    CLI::App* const list = machine->add_subcommand("list", "The built-in machines");
    list->callback([&options] { options.run = ListMachines; });

    for (CLI::App* const command : {machine, fresh, from, check, show, list}) {
        command->fallthrough();
    }
}

} // namespace tool
