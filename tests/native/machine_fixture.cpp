#include "machine_fixture.h"

#include "frame/diagnostics.h"
#include "frame/session.h"
#include "platform/simulated/profile.h"
#include "platform/simulated/trace_sink.h"
#include "platform/simulated/wide_text.h"

#include <nlohmann/json.hpp>

#include <fstream>
#include <ostream>
#include <sstream>
#include <utility>

namespace test {
namespace {

std::string DefaultProfileWith(std::string_view changes) {
    std::ifstream file(DEFAULT_MACHINE_FILE);
    nlohmann::json profile = nlohmann::json::parse(file);
    profile.merge_patch(nlohmann::json::parse(changes));
    return profile.dump();
}

} // namespace

void PrintTo(const DriverRequest& request, std::ostream* out) {
    *out << std::hex << request.code << ' ' << request.in;
}

MachineTest::MachineTest() {
    sondrel::DriverHandle = platform::Handle::Invalid;
    sondrel::SessionOpen = 0;
    sondrel::SessionRefCount = 0;
    StartMachine();
    machine::Traces().Attach(5);
    // The process's first line registers the provider. Done here, so that the calls of a test are the same
    // whether it runs alone or behind others.
    sondrel::TraceWide(nullptr);
    machine::Traces().Take();
    ForgetCalls();
    TheMachine().gate.Restart();
}

void MachineTest::TearDown() {
    EXPECT_THAT(TheMachine().gate.OpenThings(), ::testing::IsEmpty());
}

void MachineTest::StartMachine(std::string_view changes, const std::string& store) {
    machine::Start(machine::ParseProfile(DefaultProfileWith(changes), "the test's machine"), store);
    m_calls.clear();
    TheMachine().gate.Transcribe([this](const std::string& line) { m_calls.push_back(line); });
}

std::vector<std::string> MachineTest::DebugLines() {
    std::vector<std::string> lines;
    for (const machine::TraceEvent& event : machine::Traces().Take()) {
        lines.push_back(machine::Utf8FromWide(event.text));
    }
    return lines;
}

std::vector<std::string> MachineTest::EventLines() {
    std::vector<std::string> lines;
    for (const machine::LoggedEvent& event : std::exchange(TheMachine().eventLog, {})) {
        lines.push_back(machine::Utf8FromWide(event.strings.back()));
    }
    return lines;
}

std::vector<std::string> MachineTest::CallsOf(std::string_view operation) const {
    std::vector<std::string> calls;
    for (const std::string& call : m_calls) {
        if (call.substr(0, call.find(' ')) == operation) {
            calls.push_back(call);
        }
    }
    return calls;
}

std::vector<DriverRequest> MachineTest::DriverRequests() const {
    std::vector<DriverRequest> requests;
    for (const std::string& call : CallsOf("DeviceIoControl")) {
        std::istringstream words(call);
        std::string name;
        std::string code;
        std::string in;
        std::string bytes;
        words >> name >> code >> in >> bytes;
        requests.push_back(
            {static_cast<std::uint32_t>(std::stoul(code, nullptr, 16)), bytes == "-" ? "" : bytes});
    }
    return requests;
}

std::vector<std::string> MachineTest::EcCommands() const {
    std::vector<std::string> commands;
    for (const DriverRequest& request : DriverRequests()) {
        if (request.code != 0x80102070) {
            continue;
        }
        const auto count = std::stoul(request.in.substr(2, 2), nullptr, 16);
        const bool reads = request.in.substr(20, 2) != "00";
        std::string command = (reads ? "" : "w ") + request.in.substr(0, 2);
        if (count != 0) {
            command += ' ' + request.in.substr(4, count * 2);
        }
        commands.push_back(command);
    }
    return commands;
}

} // namespace test
