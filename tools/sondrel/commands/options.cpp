#include "commands/options.h"

#include "base/text.h"
#include "base/trouble.h"
#include "commands/commands.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <map>

namespace tool {
namespace {

constexpr const char* About = R"(Asks VeskSondrel64 what this machine's hardware and system are doing.

The library answers 114 questions, one export each: temperatures, fans, the battery, the machine's
inventory, radios, applications, usage. This tool loads the library as a host does and calls it.)";

constexpr const char* Examples = R"(Examples:
  sondrel report                                   every reading, by family
  sondrel report --json                            the same for programs
  sondrel list                                     every export in one line each
  sondrel list Thermal_Read_Fan                    one export in full: what its values mean
  sondrel call Thermal_Read_Cpu_Temperature        one reading, bare
  sondrel call CPU_ReadCpuId 0x80000002            one with an argument
  sondrel call WMISetBatteryHealth 80              set something
  sondrel call EC_ReadEcFwRev --trace              with the debug lines that it writes
  sondrel watch                                    telemetry as it moves, until Ctrl-C
  sondrel watch Thermal_Read_Fan --csv fan.csv     one reading, every sample kept
  sondrel report --html report.html                one page: tables, and telemetry drawn
  sondrel trace -- WMIGetSN                        what a call does to the machine
  sondrel snapshot before.json                     every answer, to be compared later
  sondrel diff before.json after.json              what changed
  sondrel metrics --output sondrel.prom            numbers for Prometheus
  sondrel machine check my-notebook.json           the mistakes in a simulated machine's profile

A call prints the bare result: numbers in decimal, texts in UTF-8, raw bytes in hexadecimal, CPUID as
four hexadecimal words. What a failure value means is told on standard error.

Exit status: 0 done; 1 the library wrote outside its buffer, the snapshots differ or the profile has
mistakes; 2 a wrong name, argument or option, or a library, machine or file that cannot be used; 130
interrupted.)";

std::uint8_t InitComOf(const std::string& text) {
    if (text != "0" && text != "1") {
        throw CLI::ValidationError("--init-com", "takes 0 or 1, not \"" + OnOneLine(text) + "\"");
    }
    return text == "1" ? 1 : 0;
}

/// For an option that takes seconds.
CLI::Option* AddInterval(CLI::App& command, Sampling& sampling, const std::string& about) {
    const auto take = [&sampling](const double& seconds) {
        sampling.interval =
            std::chrono::round<std::chrono::milliseconds>(std::chrono::duration<double>(seconds));
    };
    return command.add_option_function<double>("--interval", take, about)
        ->type_name("SECONDS")
        ->check(CLI::Range(0.01, 86400.0));
}

CLI::Option* AddCount(CLI::App& command, Sampling& sampling, const char* name, const std::string& about) {
    constexpr std::size_t MostSamples = 1'000'000;
    return command.add_option(name, sampling.count, about)
        ->type_name("N")
        ->check(CLI::Range(std::size_t{1}, MostSamples));
}

/// The commands that draw what they read.
struct Drawings {
    CLI::App* watch;
    CLI::App* trace;
};

Drawings AddDrawings(CLI::App& app, CLI::App& report, Options& options) {
    CLI::Option* const html =
        report.add_option("--html", options.html, "As one page for a browser")->type_name("FILE");
    html->excludes(report.get_option("--json"));
    AddCount(report, options.pageSampling, "--samples", "Page: how often telemetry is read (20)")
        ->needs(html);
    AddInterval(report, options.pageSampling, "Page: seconds between two samples (1)")->needs(html);

    CLI::App* const watch = app.add_subcommand("watch", "Show readings as they move, until interrupted");
    watch->add_option("NAME", options.names, "The exports (telemetry)");
    AddInterval(*watch, options.watchSampling, "Seconds between two samples (2)");
    AddCount(*watch, options.watchSampling, "--count", "End after so many samples");
    watch->add_option("--csv", options.csv, "Keep the samples in this file")->type_name("FILE");
    watch->callback([&options] { options.run = Watch; });

    CLI::App* const trace = app.add_subcommand("trace", "Show what one call does, with times");
    trace->add_option("NAME", options.name, "The export")->required();
    trace->add_option("ARG", options.arguments, "What it takes");
    trace->callback([&options] { options.run = TraceExport; });
    return {watch, trace};
}

/// One option for all commands, so that it may stand before or behind them.
void AddSharedOptions(CLI::App& app, Options& options) {
    app.add_option("--library", options.library, "The library (the one beside this program)")
        ->type_name("FILE");
    app.add_option("--machine", options.machine, "Simulated machine: a built-in one or a profile (default)")
        ->type_name("NAME|FILE");
    app.add_option("--store", options.store,
                   "Simulated machine: the file that keeps its state; \":memory:\" keeps none")
        ->type_name("FILE");
    const std::map<std::string, ColourWish> wishes{
        {"auto", ColourWish::Auto}, {"always", ColourWish::Always}, {"never", ColourWish::Never}};
    app.add_option("--colour,--color", options.colour, "auto: on a terminal, unless NO_COLOR is set (auto)")
        ->type_name("auto|always|never")
        ->transform(CLI::CheckedTransformer(wishes));
    app.add_flag("--trace", options.trace, "Simulated machine: debug and event lines, on standard error");
    app.add_option_function<std::string>(
           "--init-com", [&](const std::string& text) { options.initCom = InitComOf(text); },
           "1: WMI readings enter COM themselves; 0: they rely on the caller (1)")
        ->type_name("0|1");
    app.add_flag_callback(
        "--no-session", [&] { options.session = false; }, "Do not open the driver session before a reading");
}

/// The first line only: a user needs the reason, not the whole help.
std::string ReasonOf(const CLI::ParseError& problem) {
    const std::string text = problem.what();
    return text.substr(0, text.find('\n'));
}

} // namespace

Options ParseCommandLine(const std::vector<std::string>& arguments) {
    Options options;
    CLI::App app(About, "sondrel");
    app.footer(Examples);
    app.set_version_flag("--version", "sondrel " SONDREL_VERSION, "Print the version");
    app.set_help_flag("--help,-h", "Print this help");
    app.get_formatter()->column_width(24);
    AddSharedOptions(app, options);

    CLI::App* const list = app.add_subcommand("list", "List all exports; mark those this library lacks");
    list->add_option("NAME", options.name, "Tell all about this one");
    list->callback([&options] { options.run = ListExports; });
    CLI::App* const call = app.add_subcommand("call", "Call one export and print its bare result");
    call->add_option("NAME", options.name, "The export")->required();
    call->add_option("ARG", options.arguments, "What it takes; `sondrel list NAME` tells");
    call->callback([&options] { options.run = CallExport; });
    CLI::App* const report = app.add_subcommand("report", "Call every reading and print what they say");
    report->add_flag("--json", options.json, "As one JSON object");
    report->callback([&options] { options.run = Report; });
    const auto [watch, trace] = AddDrawings(app, *report, options);
    for (CLI::App* const command : {list, call, report, watch, trace}) {
        command->fallthrough();
    }
    AddComparingCommands(app, options);
    AddMachineCommands(app, options);
    app.require_subcommand(0, 1);

    try {
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::Success& wanted) {
        app.exit(wanted);
        return options;
    } catch (const CLI::ParseError& problem) {
        throw Trouble(ReasonOf(problem) + " (sondrel --help)");
    }
    if (options.run == nullptr) {
        throw Trouble("a command is needed, list, call or report for a start (sondrel --help)");
    }
    return options;
}

} // namespace tool
