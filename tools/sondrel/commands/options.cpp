#include "commands/options.h"

#include "base/error.h"
#include "base/text.h"
#include "commands/commands.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <map>

namespace tool {
namespace {

constexpr const char* About =
    R"(Reports through VeskSondrel64 what this machine's hardware and system are doing.

The library has 114 exports: temperatures, fans, the battery, the machine's inventory, radios,
applications, usage. This tool loads the library as a host does and calls them.)";

constexpr const char* Examples = R"(Examples:
  sondrel report                                   every reading, by group
  sondrel report --json                            the same for programs
  sondrel list                                     every export in one line each
  sondrel list Thermal_Read_Fan                    one export in full, with the meaning of its values
  sondrel call Thermal_Read_Cpu_Temperature        one reading
  sondrel call CPU_ReadCpuId 0x80000002            one with an argument
  sondrel call WMISetBatteryHealth 80              set something
  sondrel call EC_ReadEcFwRev --trace              with the debug lines that it writes
  sondrel watch                                    live telemetry, until Ctrl-C
  sondrel watch Thermal_Read_Fan --csv fan.csv     one reading, with every sample in a file
  sondrel report --html report.html                one page with tables and charts
  sondrel trace -- WMIGetSN                        what a call does to the machine
  sondrel snapshot before.json                     every answer, for a later comparison
  sondrel diff before.json after.json              what changed
  sondrel metrics --output sondrel.prom            numbers for Prometheus
  sondrel record -o notebook.rec                   what the library asks of this machine, and gets
  sondrel --machine notebook.rec report            the same machine again, anywhere
  sondrel machine check my-notebook.json           the errors of a simulated machine's profile

A call prints the result: numbers in decimal, strings in UTF-8, raw bytes in hexadecimal, CPUID as four
hexadecimal words. The meaning of a failure value is printed on standard error.

Exit status: 0 done; 1 the library wrote outside its buffer, the snapshots or recordings differ or the
profile has errors; 2 a wrong name, argument or option, or a library, machine or file that cannot be used; 130
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

/// For the commands that load the shipped library.
void AddObserved(CLI::App& command, Options& options) {
    command.add_flag_callback(
        "--observed", [&options] { options.host.form = Library::Form::Observed; },
        "Load the observed library: it shows the cause of a failure");
}

/// The commands that show readings over time.
struct Drawings {
    CLI::App* watch;
    CLI::App* trace;
};

Drawings AddDrawings(CLI::App& app, CLI::App& report, Options& options) {
    CLI::Option* const html =
        report.add_option("--html", options.page.file, "As one page for a browser")->type_name("FILE");
    html->excludes(report.get_option("--json"));
    AddCount(report, options.page.sampling, "--samples", "Page: number of telemetry samples (20)")
        ->needs(html);
    AddInterval(report, options.page.sampling, "Page: seconds between two samples (1)")->needs(html);

    CLI::App* const watch = app.add_subcommand("watch", "Show readings live, until interrupted");
    watch->add_option("NAME", options.names, "The exports (telemetry)");
    AddInterval(*watch, options.watchSampling, "Seconds between two samples (2)");
    AddCount(*watch, options.watchSampling, "--count", "End after so many samples");
    watch->add_option("--csv", options.csv, "Append the samples to this file")->type_name("FILE");
    AddObserved(*watch, options);
    watch->callback([&options] { options.run = Watch; });

    CLI::App* const trace = app.add_subcommand("trace", "Show what one call does, with times");
    trace->add_option("NAME", options.name, "The export")->required();
    trace->add_option("ARG", options.arguments, "Its argument");
    trace->callback([&options] { options.run = TraceExport; });
    return {watch, trace};
}

/// Options of all commands, before or after the command.
void AddSharedOptions(CLI::App& app, Options& options) {
    app.add_option("--library", options.host.library, "The library (the one of this kit or build)")
        ->type_name("FILE");
    app.add_option("--machine", options.host.machine,
                   "Simulated machine: a built-in one or a profile (default); or a recording, NAME.rec")
        ->type_name("NAME|FILE");
    app.add_option("--store", options.host.store,
                   "Simulated machine: the file that stores its state; \":memory:\" for none")
        ->type_name("FILE");
    const std::map<std::string, ColourMode> modes{
        {"auto", ColourMode::Auto}, {"always", ColourMode::Always}, {"never", ColourMode::Never}};
    app.add_option("--colour,--color", options.colour, "auto: on a terminal, unless NO_COLOR is set (auto)")
        ->type_name("auto|always|never")
        ->transform(CLI::CheckedTransformer(modes));
    app.add_flag("--trace", options.host.trace,
                 "Simulated machine: debug and event lines, on standard error");
    app.add_option_function<std::string>(
           "--init-com", [&](const std::string& text) { options.reading.initCom = InitComOf(text); },
           "1: WMI readings enter COM; 0: the caller has entered it (1)")
        ->type_name("0|1");
    app.add_flag_callback(
        "--no-session", [&] { options.reading.session = false; },
        "Do not open the driver session before a reading");
}

/// The first line only: the reason without the help.
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
    list->add_option("NAME", options.name, "Show this one in full");
    list->callback([&options] { options.run = ListExports; });
    CLI::App* const call = app.add_subcommand("call", "Call one export and print its result");
    call->add_option("NAME", options.name, "The export")->required();
    call->add_option("ARG", options.arguments, "Its argument; see `sondrel list NAME`");
    AddObserved(*call, options);
    call->callback([&options] { options.run = CallExport; });
    CLI::App* const report = app.add_subcommand("report", "Call every reading and print the results");
    report->add_flag("--json", options.json, "As one JSON object");
    report->callback([&options] { options.run = Report; });
    const auto [watch, trace] = AddDrawings(app, *report, options);
    for (CLI::App* const command : {list, call, report, watch, trace}) {
        command->fallthrough();
    }
    AddComparingCommands(app, options);
    AddRecordingCommands(app, options);
    AddMachineCommands(app, options);
    app.require_subcommand(0, 1);

    try {
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::Success& request) {
        app.exit(request);
        return options;
    } catch (const CLI::ParseError& problem) {
        throw Error(ReasonOf(problem) + " (sondrel --help)");
    }
    if (options.run == nullptr) {
        throw Error("a command is needed, for example list, call or report (sondrel --help)");
    }
    return options;
}

} // namespace tool
