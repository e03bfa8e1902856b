#include "machine_fixture.h"

#include "firmware/disk_temperature.h"
#include "frame/diagnostics.h"
#include "frame/session.h"
#include "machine/models/trace_sink.h"
#include "machine/profile/profile.h"
#include "radio/bluetooth_snapshot.h"
#include "radio/wifi_snapshot.h"
#include "unicode/utf.h"

#include <nlohmann/json.hpp>

#include <unistd.h>

#include <algorithm>
#include <fstream>

namespace test {
namespace {

constexpr const char* Bare = R"({
    "applications": {"machine": null, "machine_32": null, "user": null, "user_32": null},
    "packages": {"all": []}, "pnp_devices": [], "processes": [], "windows": []})";

bool IsDebugLine(const observer::Record& record) {
    return record.operation == observer::Operation::EventWriteTransfer;
}

const observer::Value& Input(const observer::Record& record, std::string_view name) {
    return *record.Input(name);
}

/// An input that is a block of bytes.
const observer::Bytes& BytesOf(const observer::Record& record, std::string_view name) {
    return std::get<observer::Bytes>(Input(record, name).held);
}

std::int64_t NumberOf(const observer::Record& record, std::string_view name) {
    return std::get<observer::Number>(Input(record, name).held).value;
}

} // namespace

MachineTest::MachineTest()
    : m_store(std::filesystem::temp_directory_path() / ("sondrel-store-" + std::to_string(getpid()))) {
    RemoveStore();
    observer::AddSink(*this);
    sondrel::DriverHandle = platform::Handle::Invalid;
    sondrel::SessionOpen = 0;
    sondrel::SessionRefCount = 0;
    ForgetRecords();
    StartMachine();
    machine::Traces().Attach(5);
    machine::Traces().OnEvent([this](const machine::TraceEvent& event) {
        m_journal.push_back("debug " + unicode::Utf8FromWide(event.text));
    });
    // The process's first line registers the provider. Done here, so that the calls of a test are the same
    // whether it runs alone or after others.
    sondrel::TraceWide(nullptr);
    machine::Traces().Take();
    Listen();
    observer::Restart();
}

MachineTest::~MachineTest() {
    observer::Restart();
    observer::RemoveSink(*this);
    machine::Traces().OnEvent({});
    RemoveStore();
}

void MachineTest::TearDown() {
    CloseSession();
    EXPECT_THAT(OpenThings(), ::testing::IsEmpty());
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
    observer::ForgetOpenThings();
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
    observer::ForgetOpenThings();
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
    m_records.clear();
    m_journal.clear();
    m_afterCall = {};
    TheMachine()->onLoggedEvent = [this](const machine::LoggedEvent& event) {
        m_journal.push_back("event " + unicode::Utf8FromWide(event.strings.back()));
    };
}

void MachineTest::Ended(const CallRecord& record) {
    m_records.push_back(record);
    if (record.operation == Operation::Release) {
        const auto& object = std::get<observer::HandleName>(Input(record, "object").held);
        m_journal.push_back("Release " + std::string(RowOf(object.kind).name));
    } else if (record.operation == Operation::CoInitializeEx ||
               record.operation == Operation::CoUninitialize) {
        m_journal.push_back(Printed(record));
    }
    if (m_afterCall) {
        m_afterCall(record);
    }
}

Lines MachineTest::OpenThings() {
    Lines things;
    for (const observer::OpenThing& thing : observer::OpenThings()) {
        things.push_back(Printed(thing));
    }
    return things;
}

Lines MachineTest::DebugLines() {
    Lines lines;
    for (const machine::TraceEvent& event : machine::Traces().Take()) {
        lines.push_back(unicode::Utf8FromWide(event.text));
    }
    return lines;
}

Lines MachineTest::EventLines() {
    Lines lines;
    for (const machine::LoggedEvent& event : std::exchange(TheMachine()->eventLog, {})) {
        lines.push_back(unicode::Utf8FromWide(event.strings.back()));
    }
    return lines;
}

std::vector<observer::Record> MachineTest::RecordsOf(Operation operation) const {
    std::vector<CallRecord> records = m_records;
    std::erase_if(records, [operation](const CallRecord& record) { return record.operation != operation; });
    return records;
}

Lines MachineTest::Calls() const {
    Lines calls;
    for (const CallRecord& record : m_records) {
        if (!IsDebugLine(record)) {
            calls.push_back(Printed(record));
        }
    }
    return calls;
}

Lines MachineTest::CallsOf(Operation operation) const {
    Lines calls;
    for (const CallRecord& record : RecordsOf(operation)) {
        calls.push_back(Printed(record));
    }
    return calls;
}

Lines MachineTest::Operations() const {
    Lines names;
    for (const CallRecord& record : m_records) {
        if (!IsDebugLine(record)) {
            names.emplace_back(RowOf(record.operation).name);
        }
    }
    return names;
}

Lines MachineTest::DriverRequests() const {
    Lines requests;
    for (const CallRecord& record : RecordsOf(Operation::DeviceIoControl)) {
        const std::string code = Printed(Input(record, "code"));
        requests.push_back(BytesOf(record, "in").empty() ? code : code + ' ' + Printed(Input(record, "in")));
    }
    return requests;
}

std::string MachineTest::SentTraffic() const {
    constexpr std::int64_t EcRequest = 0x80102070;
    constexpr std::size_t DataAt = 2;
    constexpr std::size_t ReadsAt = 10;
    std::string traffic;
    for (const CallRecord& record : m_records) {
        if (record.operation == Operation::Sleep) {
            traffic += traffic.empty() ? "" : ", ";
            traffic += "sleep " + Printed(Input(record, "milliseconds"));
            continue;
        }
        if (record.operation != Operation::DeviceIoControl || NumberOf(record, "code") != EcRequest) {
            continue;
        }
        const observer::Bytes& in = BytesOf(record, "in");
        const std::string digits = Printed(Input(record, "in"));
        const auto count = std::to_integer<std::size_t>(in[1]);
        traffic += traffic.empty() ? "" : ", ";
        traffic += (in[ReadsAt] == std::byte{0} ? "w " : "") + digits.substr(0, 2);
        traffic += count == 0 ? "" : ' ' + digits.substr(2 * DataAt, count * 2);
    }
    return traffic;
}

void MachineTest::RunFailing(Operation operation, std::size_t nth, Failure kind,
                             const std::function<void()>& action) {
    action(); // what is read once and cached is read now
    TheMachine()->eventLog.clear();
    Listen();
    FailCalls({.nth = nth, .kind = kind, .only = &RowOf(operation)});
    action();
    EXPECT_EQ(observer::CurrentCosts().injected, 1u) << "the operation was not called that often";
    observer::Restart();
}

std::string MachineTest::Text(const std::function<void(VeskChar16*)>& read) {
    constexpr char16_t Filler = 0xA5A5;
    constexpr std::size_t Capacity = 1 << 16;
    std::u16string buffer(Capacity, Filler);
    read(buffer.data());
    const std::size_t end = buffer.find(u'\0');
    EXPECT_EQ(buffer.find_first_not_of(Filler, end == std::u16string::npos ? 0 : end + 1),
              std::u16string::npos);
    return end == std::u16string::npos ? "untouched" : unicode::Utf8FromWide(buffer.substr(0, end));
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
