#include "commands/options.h"

#include "base/error.h"
#include "base/system.h"
#include "base/text.h"
#include "commands/commands.h"
#include "commands/help.h"
#include "commands/shell_texts.h"
#include "exports/library.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <map>

namespace tool {
namespace {

constexpr const char* About =
    R"(Reports through VeskSondrel64 what this machine's hardware and system are doing.

The library has 114 exports: temperatures, fans, the battery, the machine's inventory, radios,
applications, usage. This tool loads the library as a host does and calls them.)";

constexpr const char* Outcome = R"(`sondrel COMMAND --help` has its options and examples.

A call prints the result: numbers in decimal, strings in UTF-8, raw bytes in hexadecimal, CPUID as four
hexadecimal words. The meaning of a failure value is printed on standard error.

Exit status: 0 done; 1 the library wrote outside its buffer, the snapshots or recordings differ, the
profile has errors, a precondition is not met or a condition of --fail-if is fulfilled; 2 a wrong
name, argument or option, or a library, machine or file that cannot be used; 130 interrupted.)";

std::uint8_t InitComOf(const std::string& text) {
    if (text != "0" && text != "1") {
        throw CLI::ValidationError("--init-com", "takes 0 or 1, not \"" + OnOneLine(text) + "\"");
    }
    return text == "1" ? 1 : 0;
}

ColourMode ColourOf(const std::string& text) {
    const std::map<std::string, ColourMode> modes{
        {"auto", ColourMode::Auto}, {"always", ColourMode::Always}, {"never", ColourMode::Never}};
    const auto found = modes.find(text);
    if (found == modes.end()) {
        throw CLI::ValidationError("--colour",
                                   "takes auto, always or never, not \"" + OnOneLine(text) + "\"");
    }
    return found->second;
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

CLI::App* AddRead(CLI::App& app, Options& options) {
    CLI::App* const read = app.add_subcommand("read", "Read some readings in one session");
    read->add_option("READING", options.names, "Names, patterns (Thermal_*) or groups (battery)")
        ->required()
        ->type_name("");
    CLI::Option* const json = read->add_flag("--json", options.json, "As one JSON object");
    read->add_option("--fields", options.fields, "These fields, separated by tabs")
        ->type_name("NAME,...")
        ->delimiter(',')
        ->check(CLI::IsMember(ReadingFields()).description(""))
        ->excludes(json)
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    AddObserved(*read, options);
    read->callback([&options] { options.run = ReadReadings; });
    return read;
}

Drawings AddDrawings(CLI::App& app, CLI::App& report, Options& options) {
    CLI::Option* const html =
        report.add_option("--html", options.page.file, "As one page for a browser")->type_name("FILE");
    html->excludes(report.get_option("--json"));
    AddCount(report, options.page.sampling, "--samples", "Page: number of telemetry samples (20)")
        ->needs(html);
    AddInterval(report, options.page.sampling, "Page: seconds between two samples (2)")->needs(html);

    CLI::App* const watch = app.add_subcommand("watch", "Show readings live, until interrupted");
    watch->add_option("READING", options.names, "Names, patterns or groups (telemetry)")->type_name("");
    AddInterval(*watch, options.watchSampling, "Seconds between two samples (2)");
    AddCount(*watch, options.watchSampling, "--count", "End after so many samples");
    CLI::Option* const csv =
        watch->add_option("--csv", options.csv, "Append the samples to this file")->type_name("FILE");
    watch->add_flag("--ndjson", options.ndjson, "Print a line of JSON for each sample")->excludes(csv);
    watch
        ->add_option("--fail-if", options.failIf,
                     "End with status 1 when this is so, for example \"Thermal_Read_Fan[0] < 500\"")
        ->type_name("CONDITION")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    AddObserved(*watch, options);
    watch->callback([&options] { options.run = Watch; });

    CLI::App* const trace = app.add_subcommand("trace", "Show what one call does, with times");
    trace->add_option("EXPORT", options.name, "What to call")->required()->type_name("");
    trace->add_option("ARG", options.arguments, "Its argument")->type_name("");
    trace->callback([&options] { options.run = TraceExport; });
    return {watch, trace};
}

/// Options of all commands, before or after the command.
void AddSharedOptions(CLI::App& app, Options& options) {
    constexpr const char* Group = "Shared options";
    app.add_option("--library", options.host.library, "The library (the one of this kit or build)")
        ->type_name("FILE")
        ->group(Group);
    app.add_option("--machine", options.host.machine,
                   "Simulated machine: a built-in one or a profile (default); or a recording, NAME.rec")
        ->type_name("NAME|FILE")
        ->group(Group);
    app.add_option("--store", options.host.store,
                   "Simulated machine: the file that stores its state; \":memory:\" for none")
        ->type_name("FILE")
        ->group(Group);
    app.add_option_function<std::string>(
           "--colour,--color", [&](const std::string& text) { options.colour = ColourOf(text); },
           "auto: on a terminal, unless NO_COLOR is set (auto)")
        ->type_name("auto|always|never")
        ->group(Group);
    app.add_flag("--trace", options.host.trace, "Simulated machine: debug and event lines, on standard error")
        ->group(Group);
    app.add_option_function<std::string>(
           "--init-com", [&](const std::string& text) { options.reading.initCom = InitComOf(text); },
           "1: WMI readings enter COM; 0: the caller has entered it (1)")
        ->type_name("0|1")
        ->group(Group);
    app.add_flag_callback(
           "--no-session", [&] { options.reading.session = false; },
           "Do not open the driver session before a reading")
        ->group(Group);
}

/// The first line only: the reason without the help.
std::string ReasonOf(const CLI::ParseError& problem) {
    const std::string text = problem.what();
    return text.substr(0, text.find('\n'));
}

/// Each command's help has its examples and the shared options. Profiles are made without a library.
void CompleteHelp(CLI::App& app, Options& options, const std::string& path = {}) {
    for (CLI::App* const command : app.get_subcommands({})) {
        const std::string name = path + command->get_name();
        command->footer(ExamplesOf(name));
        if (app.get_parent() == nullptr && name != "machine" && name != "completion") {
            AddSharedOptions(*command, options);
        }
        CompleteHelp(*command, options, name + ' ');
    }
}

/// The command that the arguments have chosen, as far as they were understood.
const CLI::App& ChosenCommand(const CLI::App& app) {
    const std::vector<CLI::App*> chosen = app.get_subcommands();
    return chosen.empty() ? app : ChosenCommand(*chosen.back());
}

/// "sondrel machine new"
std::string PathOfCommand(const CLI::App& app) {
    const CLI::App* const parent = app.get_parent();
    return (parent == nullptr ? std::string() : PathOfCommand(*parent) + ' ') + app.get_name();
}

[[noreturn]] void ThrowWrongLine(const CLI::App& app, const CLI::ParseError& problem) {
    const CLI::App& command = ChosenCommand(app);
    const std::string help = " (" + PathOfCommand(command) + " --help)";
    const std::vector<CLI::App*> below = const_cast<CLI::App&>(command).get_subcommands({});
    const std::vector<std::string> left = app.remaining(true);
    const auto word =
        std::ranges::find_if(left, [](const std::string& each) { return !each.starts_with('-'); });
    if (below.empty() || word == left.end() || !command.get_subcommands().empty()) {
        throw Error(ReasonOf(problem) + help);
    }
    std::vector<std::string_view> names(below.size());
    std::ranges::transform(below, names.begin(),
                           [](const CLI::App* each) { return std::string_view(each->get_name()); });
    const std::string_view nearest = Nearest(*word, names);
    throw Error("there is no command \"" + OnOneLine(*word) + '"' +
                (nearest.empty() ? std::string() : "; did you mean " + std::string(nearest) + '?') + help);
}

int PrintVersion(const Options& options) {
    std::cout << "sondrel " SONDREL_VERSION "\n";
    try {
        const Library library(options.host.library);
        const std::string version = host_system::VersionOf(library.File());
        std::cout << "library " << (version.empty() ? "of an unknown version" : version) << "  "
                  << OnOneLine(Utf8Of(library.File())) << '\n';
    } catch (const Error& problem) {
        std::cout << "library " << problem.what() << '\n';
    }
    return ExitOk;
}

} // namespace

Options ParseCommandLine(const std::vector<std::string>& arguments) {
    Options options;
    CLI::App app(About, "sondrel");
    app.footer(Outcome);
    app.add_flag_callback(
        "--version", [&options] { options.run = PrintVersion; }, "Print the versions of tool and library");
    app.set_help_flag("--help,-h", "Print this help");
    app.get_formatter()->column_width(24);
    AddSharedOptions(app, options);

    CLI::App* const list = app.add_subcommand("list", "List all exports; mark those this library lacks");
    list->add_option("EXPORT", options.name, "Show this one in full")->type_name("");
    list->callback([&options] { options.run = ListExports; });
    CLI::App* const call = app.add_subcommand("call", "Call one export and print its result");
    call->add_option("EXPORT", options.name, "What to call")->required()->type_name("");
    call->add_option("ARG", options.arguments, "Its argument; see `sondrel list EXPORT`")->type_name("");
    call->add_flag("--json", options.json, "As one JSON object");
    AddObserved(*call, options);
    call->callback([&options] { options.run = CallExport; });
    CLI::App* const read = AddRead(app, options);
    CLI::App* const report = app.add_subcommand("report", "Call every reading and print the results");
    report->add_flag("--json", options.json, "As one JSON object");
    report->callback([&options] { options.run = Report; });
    CLI::App* const doctor = app.add_subcommand("doctor", "Check what the readings rely on");
    doctor->add_flag("--json", options.json, "As one JSON object");
    doctor->callback([&options] { options.run = Examine; });
    const auto [watch, trace] = AddDrawings(app, *report, options);
    for (CLI::App* const command : {list, call, read, report, doctor, watch, trace}) {
        command->fallthrough();
    }
    AddComparingCommands(app, options);
    AddRecordingCommands(app, options);
    AddMachineCommands(app, options);
    CLI::App* const completion =
        app.add_subcommand("completion", "Print completion for a shell, or the manual page");
    std::string shell;
    completion->add_option("SHELL", shell, "bash, zsh, powershell or man")->required()->type_name("");
    completion->callback([&options] {
        options.run = [](const Options&) {
            return ExitOk;
        };
    });
    CompleteHelp(app, options);
    app.require_subcommand(0, 1);

    try {
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::Success& request) {
        app.exit(request);
        return options;
    } catch (const CLI::ParseError& problem) {
        ThrowWrongLine(app, problem);
    }
    if (!shell.empty()) {
        std::cout << ShellText(app, shell);
    }
    if (options.run == nullptr) {
        throw Error("a command is needed, for example list, call or report (sondrel --help)");
    }
    return options;
}

} // namespace tool
