#include "machines/simulated_machine.h"

#include "base/error.h"
#include "base/input_file.h"
#include "base/new_file.h"
#include "base/text.h"
#include "vesk_sondrel_machine.h"

#include <array>
#include <iostream>
#include <system_error>

namespace tool {
namespace {

void PrintLine(void*, int kind, const char* line) {
    std::string_view text(line);
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) {
        text.remove_suffix(1);
    }
    std::cerr << (kind == VESK_MACHINE_EVENT_LINE ? "event: " : "debug: ") << OnOneLine(text) << '\n';
}

/// Standard input as a file, which the machine needs.
class ProfileFromInput {
public:
    ProfileFromInput() { m_file.Write(ReadFile("-")); }

    [[nodiscard]] std::string Name() const { return Utf8Of(m_name); }

private:
    const std::filesystem::path m_name =
        std::filesystem::temp_directory_path() / UnguessableName("profile.json");
    NewFile m_file{m_name};
};

} // namespace

template <class Function>
Function* SimulatedMachine::Routine(const char* name) const {
    const Address address = m_library.Find(name);
    if (address == nullptr) {
        throw Error("the simulated machine next to the library has no " + std::string(name));
    }
    return reinterpret_cast<Function*>(address);
}

std::optional<SimulatedMachine> SimulatedMachine::NextTo(const std::filesystem::path& libraryFile) {
    const std::string_view name = host_system::MachineFileName();
    const std::filesystem::path file = libraryFile.parent_path() / name;
    std::error_code problem;
    if (name.empty() || !std::filesystem::exists(file, problem)) {
        return std::nullopt;
    }
    return SimulatedMachine(SharedLibrary(file));
}

void SimulatedMachine::Start(const std::string& machine, const std::optional<std::string>& store) {
    std::array<char, 2048> problem{};
    std::optional<ProfileFromInput> input;
    if (machine == "-") {
        input.emplace();
    }
    const auto start = Routine<decltype(VeskMachine_Start)>("VeskMachine_Start");
    if (start(input ? input->Name().c_str() : machine.c_str(), store ? store->c_str() : nullptr,
              problem.data(), problem.size()) == 0) {
        throw Error(OnOneLine(problem.data()));
    }
}

void SimulatedMachine::Trace() {
    Routine<decltype(VeskMachine_Listen)>("VeskMachine_Listen")(PrintLine, nullptr);
}

void SimulatedMachine::Listen(Listener listener, void* context) const {
    Routine<decltype(VeskMachine_Listen)>("VeskMachine_Listen")(listener, context);
}

void SimulatedMachine::TieToRealTime() const {
    Routine<decltype(VeskMachine_TieToRealTime)>("VeskMachine_TieToRealTime")(1);
}

void SimulatedMachine::PassTime(std::chrono::microseconds time) const {
    Routine<decltype(VeskMachine_PassTime)>("VeskMachine_PassTime")(static_cast<std::uint64_t>(time.count()));
}

std::chrono::microseconds SimulatedMachine::Now() const {
    return std::chrono::microseconds(
        Routine<decltype(VeskMachine_Microseconds)>("VeskMachine_Microseconds")());
}

std::string SimulatedMachine::DefaultName() const {
    const char* const name = Routine<decltype(VeskMachine_BuiltIn)>("VeskMachine_BuiltIn")(0);
    return name != nullptr ? name : "";
}

} // namespace tool
