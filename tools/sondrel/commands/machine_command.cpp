// sondrel machine: creates, checks and shows profiles of simulated machines. No library is loaded.
#include "commands/machine_command.h"

#include "base/error.h"
#include "base/input_file.h"
#include "base/text.h"
#include "machine/profile/built_in_machines.h"
#include "machine/profile/profile_document.h"
#include "machines/json_places.h"
#include "machines/machine_words.h"
#include "machines/profile_check.h"
#include "output/output_file.h"
#include "profiles/profile_from_recording.h"
#include "recordings/recording_file.h"
#include "terminal/terminal.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <stdexcept>

namespace tool {
namespace {

/// Where a profile of a family starts.
struct FamilyStart {
    std::string_view code;
    std::string_view machine;
};

constexpr FamilyStart FamilyStarts[] = {{"AB", "ab"},      {"AR", "ar"}, {"CF", "cf"}, {"GL", "gl"},
                                        {"KL", "default"}, {"PC", "pc"}, {"WL", "wl"}};

const machine::BuiltInMachine* FindBuiltIn(std::string_view name) {
    const auto machines = machine::BuiltInMachineTexts();
    const auto found = std::ranges::find(machines, name, &machine::BuiltInMachine::name);
    return found != machines.end() ? &*found : nullptr;
}

std::string TextOfFile(const std::string& file) {
    try {
        return file == "-" ? ReadFile(file) : machine::ReadProfileFile(file);
    } catch (const std::runtime_error& problem) {
        throw Error(OnOneLine(file) + ": " + problem.what());
    }
}

std::string TextOfMachine(const std::string& nameOrFile) {
    const machine::BuiltInMachine* const builtIn = FindBuiltIn(nameOrFile);
    if (builtIn != nullptr) {
        return std::string(builtIn->text);
    }
    std::error_code problem;
    if (nameOrFile != "-" && !std::filesystem::exists(PathOf(nameOrFile), problem)) {
        throw Error(std::string("there is no machine and no such file \"").append(OnOneLine(nameOrFile)) +
                    "\"; sondrel machine list shows the built-in ones");
    }
    return TextOfFile(nameOrFile);
}

std::string LineOf(const std::string& file, const ProfileFinding& finding) {
    return OnOneLine(file) + ':' + std::to_string(finding.place.line) + ':' +
           std::to_string(finding.place.column) + ": " + finding.text;
}

/// A profile without errors. Throws Error with the first one.
std::string Checked(const std::string& nameOrFile, std::string text) {
    if (const std::vector<ProfileFinding> findings = FindingsIn(text); !findings.empty()) {
        throw Error(LineOf(nameOrFile, findings.front()));
    }
    return text;
}

std::string FamilyMachine(const std::string& family) {
    std::string code = family;
    std::ranges::transform(code, code.begin(), [](char letter) {
        return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    });
    const auto* const found = std::ranges::find(FamilyStarts, code, &FamilyStart::code);
    if (found == std::end(FamilyStarts)) {
        std::string known;
        for (const FamilyStart& each : FamilyStarts) {
            known.append(known.empty() ? "" : ", ").append(each.code);
        }
        throw Error(std::string("there is no family \"").append(OnOneLine(family)) + "\"; expected one of " +
                    known);
    }
    return std::string(found->machine);
}

std::string CheckedTextOf(const std::string& nameOrFile) {
    return Checked(nameOrFile, TextOfMachine(nameOrFile));
}

/// The name of the new machine: that of its file.
std::string NewName(const Options& options) {
    const bool named = !options.output.empty() && options.output != "-";
    return named ? Utf8Of(PathOf(options.output).stem()) : "my-machine";
}

std::string Quoted(const std::string& name) {
    return nlohmann::json(name).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

void WriteNew(const Options& options, const std::string& text) {
    std::error_code problem;
    if (options.output != "-" && std::filesystem::is_regular_file(PathOf(options.output), problem)) {
        throw Error(OnOneLine(options.output) + ": exists already and is not replaced");
    }
    WriteOutput(options.output, text);
}

} // namespace

int NewMachine(const Options& options) {
    if (options.from.empty() == options.name.empty()) {
        throw Error("machine new takes a family or --from NAME (sondrel machine new --help)");
    }
    std::string text = CheckedTextOf(options.from.empty() ? FamilyMachine(options.name) : options.from);
    const ByteRange name = JsonPlaces(text).ValueOf("/name");
    text.replace(name.begin, name.end - name.begin, Quoted(NewName(options)));
    text = Checked(options.output.empty() ? "-" : options.output, text);
    WriteNew(options, text);
    return ExitOk;
}

int MachineFromRecording(const Options& options) {
    const MadeProfile made = ProfileFrom(*LoadRecording(options.name), NewName(options));
    WriteNew(options, made.text);
    for (const std::string& line : made.leftOut) {
        std::cerr << "left out: " << line << '\n';
    }
    return ExitOk;
}

int CheckMachines(const Options& options) {
    std::size_t wrong = 0;
    for (const std::string& file : options.files) {
        const std::vector<ProfileFinding> findings = FindingsIn(TextOfMachine(file));
        for (const ProfileFinding& finding : findings) {
            std::cout << LineOf(file, finding) << '\n';
        }
        if (findings.empty()) {
            std::cout << OnOneLine(file) << ": a good profile\n";
        }
        wrong += findings.empty() ? 0 : 1;
    }
    return wrong == 0 ? ExitOk : ExitFinding;
}

int ShowMachine(const Options& options) {
    const std::string text = CheckedTextOf(options.name);
    std::cout << MachineInWords(nlohmann::json::parse(text), terminal::ColumnsFor(terminal::Stream::Out));
    return ExitOk;
}

int ListMachines(const Options&) {
    constexpr std::size_t NameColumn = 20;
    for (const machine::BuiltInMachine& builtIn : machine::BuiltInMachineTexts()) {
        std::string line(builtIn.name);
        line.resize(std::max(line.size() + 1, NameColumn), ' ');
        std::cout << line << nlohmann::json::parse(builtIn.text).value("description", "") << '\n';
    }
    return ExitOk;
}

} // namespace tool
