#include "machine_fixture.h"

#include "firmware/disk_temperature.h"
#include "frame/diagnostics.h"
#include "frame/session.h"
#include "machine/profile/profile.h"
#include "machine/services/trace_sink.h"
#include "machine/text/wide_text.h"
#include "radio/bluetooth_snapshot.h"
#include "radio/wifi_snapshot.h"

#include <nlohmann/json.hpp>

#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <sstream>

namespace test {
namespace {

constexpr const char* Bare = R"({
    "applications": {"machine": null, "machine_32": null, "user": null, "user_32": null},
    "packages": {"all": []}, "pnp_devices": [], "processes": [], "windows": []})";

std::string_view OperationOf(std::string_view call) {
    return call.substr(0, call.find(' '));
}

} // namespace

MachineTest::MachineTest()
    : m_store(std::filesystem::temp_directory_path() / ("sondrel-store-" + std::to_string(getpid()))) {
    RemoveStore();
    sondrel::DriverHandle = platform::Handle::Invalid;
    sondrel::SessionOpen = 0;
    sondrel::SessionRefCount = 0;
    ForgetRecords();
    StartMachine();
    machine::Traces().Attach(5);
    machine::Traces().OnEvent([this](const machine::TraceEvent& event) {
        m_journal.push_back("debug " + machine::Utf8FromWide(event.text));
    });
    // The process's first line registers the provider. Done here, so that the calls of a test are the same
    // whether it runs alone or behind others.
    sondrel::TraceWide(nullptr);
    machine::Traces().Take();
    Listen();
    TheMachine().gate.Restart();
}

MachineTest::~MachineTest() {
    machine::Traces().OnEvent({});
    RemoveStore();
}

void MachineTest::TearDown() {
    CloseSession();
    EXPECT_THAT(TheMachine().gate.OpenThings(), ::testing::IsEmpty());
}

void MachineTest::RemoveStore() const {
    std::filesystem::remove(m_store);
    std::filesystem::remove_all(m_store + ".files");
}

void MachineTest::ForgetRecords() {
    sondrel::WiFiSnapshot = {};
    sondrel::BluetoothSnapshot = {};
    sondrel::SmartDiskTable = {};
}

void MachineTest::CloseSession() {
    while (sondrel::SessionOpen != 0) {
        ShutdownSondrel();
    }
}

void MachineTest::StartMerged(std::string_view base, std::string_view changes, const std::string& store) {
    CloseSession();
    std::ifstream file(DEFAULT_MACHINE_FILE);
    nlohmann::json profile = nlohmann::json::parse(file);
    profile.merge_patch(nlohmann::json::parse(base));
    profile.merge_patch(nlohmann::json::parse(changes));
    machine::Start(machine::ParseProfile(profile.dump(), "the test's machine"), store);
    Listen();
}

void MachineTest::StartMachine(std::string_view changes, const std::string& store) {
    StartMerged("{}", changes, store);
}

void MachineTest::StartBare(std::string_view changes) {
    StartMerged(Bare, changes, ":memory:");
}

void MachineTest::StartBuiltIn(const std::string& name) {
    CloseSession();
    machine::Start(machine::LoadProfile(name), ":memory:");
    Listen();
}

void MachineTest::StartFamily(const std::string& revision, int chipId, const std::string& ec) {
    StartMachine(R"({"ec": {"revision": ")" + revision + R"(", "chip_id": )" + std::to_string(chipId) +
                 (ec.empty() ? "" : ", " + ec) + "}}");
    InitializeSondrel();
    EC_ReadEcFwRev();
    EC_ReadEcChipId();
    ForgetCalls();
}

void MachineTest::Listen() {
    machine::Traces().Take();
    m_calls.clear();
    m_journal.clear();
    TheMachine().onLoggedEvent = [this](const machine::LoggedEvent& event) {
        m_journal.push_back("event " + machine::Utf8FromWide(event.strings.back()));
    };
    TheMachine().gate.Transcribe([this](const std::string& line) {
        m_calls.push_back(line);
        const std::string_view operation = OperationOf(line);
        if (operation == "Release" || operation == "CoInitializeEx" || operation == "CoUninitialize") {
            m_journal.push_back(line);
        }
    });
}

Lines MachineTest::DebugLines() {
    Lines lines;
    for (const machine::TraceEvent& event : machine::Traces().Take()) {
        lines.push_back(machine::Utf8FromWide(event.text));
    }
    return lines;
}

Lines MachineTest::EventLines() {
    Lines lines;
    for (const machine::LoggedEvent& event : std::exchange(TheMachine().eventLog, {})) {
        lines.push_back(machine::Utf8FromWide(event.strings.back()));
    }
    return lines;
}

Lines MachineTest::CallsOf(std::string_view operation) const {
    Lines calls = m_calls;
    std::erase_if(calls, [operation](const std::string& call) { return OperationOf(call) != operation; });
    return calls;
}

Lines MachineTest::DriverRequests() const {
    Lines requests;
    for (const std::string& call : CallsOf("DeviceIoControl")) {
        std::istringstream words(call);
        std::string name, code, in, bytes;
        words >> name >> code >> in >> bytes;
        requests.push_back(bytes == "-" ? code : code + ' ' + bytes);
    }
    return requests;
}

std::string MachineTest::SentTraffic() const {
    std::string traffic;
    for (const std::string& call : m_calls) {
        const bool waits = call.starts_with("Sleep ");
        constexpr std::string_view EcRequest = "DeviceIoControl 0x80102070 in ";
        if (!waits && !call.starts_with(EcRequest)) {
            continue;
        }
        traffic += traffic.empty() ? "" : ", ";
        if (waits) {
            traffic += "sleep " + call.substr(6, call.find(' ', 6) - 6);
            continue;
        }
        const std::string in = call.substr(EcRequest.size());
        const auto count = std::stoul(in.substr(2, 2), nullptr, 16);
        traffic += (in.substr(20, 2) == "00" ? "w " : "") + in.substr(0, 2);
        traffic += count == 0 ? "" : ' ' + in.substr(4, count * 2);
    }
    return traffic;
}

void MachineTest::RunFailing(Operation operation, std::size_t nth, Failure kind,
                             const std::function<void()>& action) {
    machine::Gate& gate = TheMachine().gate;
    gate.KeepHistory(true);
    gate.Restart();
    action();
    std::uint64_t place = 0;
    for (const Operation called : gate.History()) {
        ++place;
        if (called == operation && --nth == 0) {
            break;
        }
    }
    ASSERT_EQ(nth, 0u) << "the operation was not called that often";
    TheMachine().eventLog.clear();
    Listen();
    gate.Restart({.nth = place, .kind = kind});
    action();
    EXPECT_EQ(gate.Injected(), 1u);
    gate.Restart();
}

std::string MachineTest::Text(const std::function<void(VeskChar16*)>& read) {
    constexpr char16_t Filler = 0xA5A5;
    constexpr std::size_t Room = 1 << 16;
    std::u16string buffer(Room, Filler);
    read(buffer.data());
    const std::size_t end = buffer.find(u'\0');
    EXPECT_EQ(buffer.find_first_not_of(Filler, end == std::u16string::npos ? 0 : end + 1),
              std::u16string::npos);
    return end == std::u16string::npos ? "untouched" : machine::Utf8FromWide(buffer.substr(0, end));
}

std::string MachineTest::Text(void (*read)(VeskChar16*, std::uint8_t)) {
    return Text([read](VeskChar16* out) { read(out, 1); });
}

std::string MachineTest::Bytes(void (*read)(char*)) {
    constexpr char Guard = '\xA5';
    std::string buffer(128, Guard);
    read(buffer.data());
    return buffer.substr(0, buffer.find_last_not_of(Guard) + 1);
}

Ask Written(void (*read)(char*)) {
    return [read] {
        std::string bytes = MachineTest::Bytes(read);
        std::ranges::replace(bytes, '\0', '~');
        return bytes;
    };
}

} // namespace test
