// The command lines of record, replay, redact, compress and expand.
#include "commands/commands.h"
#include "commands/options.h"

#include <CLI/CLI.hpp>

namespace tool {

void AddRecordingCommands(CLI::App& app, Options& options) {
    CLI::App* const record =
        app.add_subcommand("record", "Write what the library asks of this machine, and gets");
    record->add_option("EXPORT", options.names, "The readings (every one)")->type_name("");
    record->add_option("--output,-o", options.output, "The new recording (sondrel.rec); it must not exist")
        ->type_name("FILE");
    record->add_flag("--no-redact", options.raw, "With serial numbers, addresses and names in it");
    record->callback([&options] { options.run = Record; });

    CLI::App* const replay =
        app.add_subcommand("replay", "Call what was recorded again, and list what differs");
    replay->add_option("FILE", options.files, "The recording")->required()->expected(1)->type_name("");
    replay->add_flag("--check", options.steady, "List all differences, which is what it does");
    replay->add_option("--part", options.part, "Only this process of the recording, from 1")->type_name("N");
    replay->callback([&options] { options.run = ReplayRecording; });

    replay->add_flag("--calls", options.callsOnly, "Leave out what exports return");

    CLI::App* const redact =
        app.add_subcommand("redact", "Replace in a recording what a machine or a person is known by");
    redact->add_option("RAW", options.files, "The recording")->required()->expected(1)->type_name("");
    redact->add_option("--output,-o", options.output, "The new recording; it must not exist")
        ->required()
        ->type_name("FILE");
    redact->callback([&options] { options.run = RedactRecording; });

    CLI::App* const compress = app.add_subcommand("compress", "Make a finished recording smaller");
    compress->add_option("FILE", options.files, "The recording")->required()->expected(1)->type_name("");
    compress->add_option("--output,-o", options.output, "The new file (FILE.gz); it must not exist")
        ->type_name("FILE");
    compress->callback([&options] { options.run = CompressRecording; });

    CLI::App* const expand =
        app.add_subcommand("expand", "Undo that, for hosts that replay it (VESK_MACHINE)");
    expand->add_option("FILE", options.files, "The compressed recording")
        ->required()
        ->expected(1)
        ->type_name("");
    expand->add_option("--output,-o", options.output, "The new file (FILE without .gz); it must not exist")
        ->type_name("FILE");
    expand->callback([&options] { options.run = ExpandRecording; });

    for (CLI::App* const command : {record, replay, redact, compress, expand}) {
        command->fallthrough();
    }
}

} // namespace tool
