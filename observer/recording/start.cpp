#include "observer/recording/start.h"

#include "observer/recording/recorder.h"
#include "observer/recording/variables.h"

#include <atomic>
#include <new>
#include <utility>

namespace observer {
namespace {

constexpr const char* EmptyRecording = "{\"vesk_recording\":1}\n";

std::string WithProcess(std::string path) {
    const std::string process = std::to_string(system::CurrentHost().process);
    for (std::size_t place = 0; (place = path.find("%p", place)) != std::string::npos;
         place += process.size()) {
        path.replace(place, 2, process);
    }
    return path;
}

void Complain(const char* name, const std::string& problem) {
    system::Complain(std::string(name) + ": " + problem);
}

std::atomic<bool> Chosen = false;

void ChooseMachine() {
    const std::string machine = system::Environment(variable::Machine);
    const std::string store = system::Environment(variable::Store);
    const char* const name = machine.empty() ? variable::Store : variable::Machine;
    try {
        if (IsRecordingName(machine)) {
            StartPrintingReplay(machine, name);
        } else if (!machine.empty() || !store.empty()) {
            system::StartMachine(machine, store);
        }
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& problem) {
        Complain(name, std::string(problem.what()) + "; every call is refused");
        SetReplay(std::make_shared<Replay>(EmptyRecording, 0, nullptr));
    }
}

void Start() {
    if (!Chosen) {
        ChooseMachine();
    }
    if (const std::string file = system::Environment(variable::Record); !file.empty()) {
        if (std::string problem; !StartRecording(file, problem)) {
            Complain(variable::Record, "nothing is recorded: " + problem);
        }
    }
}

} // namespace

bool StartRecording(const std::string& path, std::string& problem) {
    const std::string file = WithProcess(path);
    auto recorder = std::make_unique<Recorder>();
    if (!recorder->Create(file, problem)) {
        problem = file + ": " + problem;
        return false;
    }
    AddSink(*recorder.release()); // until the process ends: no call is known to be its last
    return true;
}

void StartReplay(const std::string& path, std::size_t onlyPart, Replay::Report report) {
    std::string problem;
    std::optional<std::string> text = system::Content(path, LargestRecording, problem);
    if (!text) {
        throw RecordingError(path + ": " + problem);
    }
    if (text->starts_with("\x1F\x8B")) {
        throw RecordingError(path +
                             ": it is compressed, and this library reads lines: sondrel expand makes them");
    }
    try {
        SetReplay(std::make_shared<Replay>(std::move(*text), onlyPart, std::move(report)));
    } catch (const RecordingError& error) {
        throw RecordingError(path + ": " + error.what());
    }
}

void StartPrintingReplay(const std::string& path, const char* name) {
    StartReplay(path, 0, [name](const Difference& difference) {
        if (difference.kind == Difference::Kind::Call) {
            Complain(name, Printed(difference));
        }
    });
}

void MachineIsChosen() noexcept {
    Chosen = true;
}

void StartAsTheEnvironmentAsks() noexcept {
    static const bool Done = [] {
        try {
            Start();
        } catch (...) {
            system::Complain("there is not enough memory for what the environment asks");
        }
        return true;
    }();
    static_cast<void>(Done);
}

} // namespace observer
