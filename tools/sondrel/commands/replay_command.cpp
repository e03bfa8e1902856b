// sondrel replay FILE
#include "base/child.h"
#include "base/error.h"
#include "base/text.h"
#include "commands/commands.h"
#include "recordings/replay.h"
#include "terminal/interrupt.h"

#include <iostream>

namespace tool {
namespace {

constexpr std::chrono::seconds LongestPart{600};

struct Findings {
    bool callsOnly;
    bool any = false;
};

void Print(void* context, const VeskObserver_Difference* difference) {
    auto& findings = *static_cast<Findings*>(context);
    if (!findings.callsOnly || difference->kind != VESK_OBSERVER_ANSWER_DIFFERS) {
        std::cout << TextOf(*difference) << '\n';
        findings.any = true;
    }
}

/// Calls what one process had called, in its order.
int ReplayPart(const Options& options) {
    const std::string& file = options.files.front();
    const auto recording = LoadRecording(file, options.part);
    const Host host(options.host);
    Findings findings{options.callsOnly};
    StartReplay(host.library, file, options.part, Print, &findings);
    for (const observer::RecordedExport& recorded : recording->Exports()) {
        interrupt::Check();
        const Export* const row = FindExport(recorded.name);
        const std::optional<CallInputs> inputs = InputsOf(recorded);
        if (row == nullptr || !inputs) {
            std::cout << OnOneLine(recorded.name) << ": line " << recorded.line
                      << (row == nullptr ? ": there is no such export\n"
                                         : ": not called, it had a null buffer\n");
            findings.any = true;
            continue;
        }
        if (recorded.returnLine == 0 && !options.callsOnly) {
            std::cout << row->name << ": line " << recorded.line << ": the recorded call never returned\n";
            findings.any = true;
        }
        Call(AddressOf(host.library, *row), *row, *inputs);
    }
    return findings.any ? ExitFinding : ExitOk;
}

} // namespace

int ReplayRecording(const Options& options) {
    Options own = options;
    own.host.form = Library::Form::Observed;
    if (options.part != 0) {
        return ReplayPart(own);
    }
    const std::string& file = options.files.front();
    const auto recording = LoadRecording(file);
    const Library library(options.host.library, Library::Form::Observed);
    RequireObserved(library);
    int status = ExitOk;
    if (recording->CutLine() != 0) {
        std::cout << "line " << recording->CutLine() << " is cut\n";
        status = ExitFinding;
    }
    for (std::size_t part = 1; part <= recording->Parts(); ++part) {
        interrupt::Check();
        std::cout << std::flush;
        const std::optional<int> ended = host_system::RunOneself(
            {"replay", "--part", std::to_string(part), "--library", Utf8Of(library.File()), "--", file}, {},
            host_system::ChildOutput::Shared, LongestPart);
        if (!ended || *ended == ExitError) {
            throw Error("part " + std::to_string(part) + " of " + OnOneLine(file) + " could not be replayed");
        }
        status = std::max(status, *ended);
    }
    return status;
}

} // namespace tool
