// The command lines of snapshot, diff and metrics.
#include "commands/commands.h"
#include "commands/options.h"

#include <CLI/CLI.hpp>

namespace tool {

void AddComparingCommands(CLI::App& app, Options& options) {
    CLI::App* const snapshot = app.add_subcommand("snapshot", "Write every answer to a file");
    snapshot->add_option("FILE", options.files, "The file; \"-\" is standard output")
        ->required()
        ->expected(1)
        ->type_name("");
    snapshot->callback([&options] { options.run = TakeSnapshot; });

    CLI::App* const diff = app.add_subcommand("diff", "Compare two snapshots or two recordings");
    diff->add_option("FILES", options.files, "Two of a kind, the older one first")
        ->required()
        ->expected(2)
        ->type_name("");
    diff->add_flag("--steady", options.steady,
                   "Leave out what usually differs: temperatures, counters, times");
    diff->add_flag("--json", options.json, "As one JSON object");
    diff->callback([&options] { options.run = CompareSnapshots; });

    CLI::App* const metrics = app.add_subcommand("metrics", "Print the numbers for Prometheus");
    metrics
        ->add_option("--output,-o", options.output, "A file, replaced in one step, for a textfile collector")
        ->type_name("FILE");
    metrics->callback([&options] { options.run = PrintMetrics; });

    for (CLI::App* const command : {snapshot, diff, metrics}) {
        command->fallthrough();
    }
}

} // namespace tool
