#include "machine_fixture.h"

#include "firmware/firmware_method.h"
#include "platform/com.h"
#include "platform/simulated/trace_sink.h"
#include "platform/simulated/wide_text.h"

#include <algorithm>
#include <map>

namespace {

using machine::Failure;
using machine::Operation;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class FirmwareMethodTest : public test::MachineTest {
protected:
    static std::string Dsts(const char16_t* id, std::uint8_t initCom = 1) {
        return machine::Utf8FromWide(
            sondrel::wmiMethod(u"DSTS", {{u"Device_ID", id}}, u"device_status", initCom));
    }

    static std::string Devs(const char16_t* status = u"80") {
        return machine::Utf8FromWide(sondrel::wmiMethod(
            u"DEVS", {{u"Device_ID", u"1179735"}, {u"Control_status", status}}, u"result", 1));
    }

    /// The numbers of the calls that `Devs` makes of one operation.
    static std::vector<std::uint64_t> NumbersOf(Operation operation) {
        TheMachine().gate.KeepHistory(true);
        TheMachine().gate.Restart();
        Devs();
        std::vector<std::uint64_t> numbers;
        const auto& history = TheMachine().gate.History();
        for (std::size_t at = 0; at < history.size(); ++at) {
            if (history[at] == operation) {
                numbers.push_back(at + 1);
            }
        }
        return numbers;
    }

    void ExpectFailure(std::uint64_t nth, Failure kind, const std::string& event, const std::string& debug) {
        EventLines();
        DebugLines();
        TheMachine().gate.Restart({.nth = nth, .kind = kind});
        EXPECT_EQ(Devs(), "");
        EXPECT_EQ(TheMachine().gate.Injected(), 1u) << debug;
        TheMachine().gate.Restart();
        EXPECT_THAT(EventLines(), ElementsAre(event));
        std::vector<std::string> lines{debug};
        if (debug.find("Step1") == std::string::npos) {
            lines.emplace_back("[wmiMethod] Do CoUninitialize()");
        }
        EXPECT_EQ(DebugLines(), lines);
        EXPECT_THAT(TheMachine().gate.OpenThings(), IsEmpty());
    }
};

TEST_F(FirmwareMethodTest, WalksThirteenStepsAndGivesEverythingBackInOrder) {
    machine::Traces().Detach();
    EXPECT_EQ(Devs(), "1");
    std::vector<std::string> calls = Calls();
    const std::string path = R"(\\.\ROOT\WMI:VeskZrnWmi_WMNB.InstanceName="ACPI\\PNP0C14\\VESK_0")";
    EXPECT_THAT(calls,
                ElementsAre("CoInitializeEx multithreaded = 0", "CoCreateInstance context 1 = 0",
                            "ConnectServer ROOT\\WMI = 0", "CoSetProxyBlanket 10 0 3 3 0 = 0",
                            "ExecQuery WQL flags 48 Select * from VeskZrnWmi_WMNB = 0", "Next infinite = 0",
                            "GetObject VeskZrnWmi_WMNB = 0", "GetMethod DEVS = 0", HasSubstr("SpawnInstance"),
                            "Put Control_status \"80\" type 19 = 0", "Put Device_ID \"1179735\" type 19 = 0",
                            "Get __PATH = 0", "ExecMethod DEVS on " + path + " = 0", "Get result = 0",
                            "Release IWbemClassObject", "Release IWbemClassObject",
                            "Release IWbemClassObject", "Release IWbemClassObject",
                            "Release IWbemClassObject", "Release IEnumWbemClassObject",
                            "Release IWbemLocator", "Release IWbemServices", "CoUninitialize"));
}

TEST_F(FirmwareMethodTest, LeavesTheCallersApartmentAlone) {
    DebugLines();
    ASSERT_EQ(platform::CoInitializeEx(platform::apartment::SingleThreaded), platform::hresult::Ok);
    EXPECT_EQ(Dsts(u"1179735", 0), "65536");
    EXPECT_THAT(DebugLines(), ElementsAre("[wmiMethod] varReturnValue is 65536"));
    EXPECT_THAT(CallsOf("CoUninitialize"), IsEmpty());
    EXPECT_EQ(Dsts(u"1179735", 1), "") << "the thread is in another kind of apartment";
    EXPECT_THAT(CallsOf("CoUninitialize"), IsEmpty());
    platform::CoUninitialize();
    EXPECT_EQ(Dsts(u"1179735", 1), "65536");
}

TEST_F(FirmwareMethodTest, GivesANumberWithItsSign) {
    EXPECT_EQ(Dsts(u"7"), "-2"); // 0xFFFFFFFE: the firmware knows no such id
    EXPECT_EQ(Dsts(u"1114137"), "65536");
}

TEST_F(FirmwareMethodTest, TellsEveryFailedStepInBothLogs) {
    struct Row {
        Operation operation;
        std::size_t use;
        const char* event;
        const char* debug;
    };

    constexpr Row Rows[] = {
        {Operation::CoInitializeEx, 0, "Step1 Failed to initialize COM library. Error code", nullptr},
        {Operation::CoCreateInstance, 0, "Step3 Failed to create IWbemLocator object. Error code", nullptr},
        {Operation::ConnectServer, 0, "Step4 Could not connect. Error code", nullptr},
        {Operation::CoSetProxyBlanket, 0, "Step5 Could not set proxy blanket. Error code", nullptr},
        {Operation::ExecQuery, 0, " Step6 Could not ExecQuery. Error code",
         "Step6 Could not ExecQuery. Error code"},
        {Operation::Next, 0, "Could not Get the Next Object. Error code", nullptr},
        {Operation::GetObject, 0, "Could not GetObject. Error code", nullptr},
        {Operation::GetMethod, 0, "Could not GetMethod. Error code", nullptr},
        {Operation::SpawnInstance, 0, "Could not SpawnInstance. Error code", nullptr},
        {Operation::Put, 0, "Could not put parameters. Error code", nullptr},
        {Operation::Put, 1, "Could not put parameters. Error code", nullptr},
        {Operation::Get, 0, "Could not Get method retrieves. Error code", nullptr},
        {Operation::ExecMethod, 0, "Could not execute method.Error code",
         "Could not execute method. Error code"},
        {Operation::Get, 1, "Could not get output.Error code", "Could not get output. Error code"},
    };
    for (const Row& row : Rows) {
        char status[16];
        std::snprintf(status, sizeof status, " = 0x%x", machine::RowOf(row.operation).refusal);
        const auto text = [&](const char* message) {
            return std::string("[wmiMethod] ") + message + status;
        };
        ExpectFailure(NumbersOf(row.operation).at(row.use), Failure::Refused, text(row.event),
                      text(row.debug != nullptr ? row.debug : row.event));
    }
}

TEST_F(FirmwareMethodTest, TakesSuccessWithoutAnObjectForAFailureOfThatStep) {
    const auto both = [this](Operation operation, const std::string& text, const std::string& event) {
        ExpectFailure(NumbersOf(operation).at(0), Failure::Nothing, event, text);
    };
    both(Operation::Next, "[wmiMethod] Could not Get the Next Object. Error code = 0x1",
         "[wmiMethod] Could not Get the Next Object. Error code = 0x1");
    both(Operation::GetMethod, "[wmiMethod] Could not GetMethod. Error code = 0x0",
         "[wmiMethod] Could not GetMethod. Error code = 0x0");
    both(Operation::ExecMethod, "[wmiMethod] Could not execute method. Error code = 0x0",
         "[wmiMethod] Could not execute method.Error code = 0x0");
    StartMachine(R"({"wmi": {"ROOT\\WMI": {"VeskZrnWmi_WMNB": []}}})");
    EXPECT_EQ(Devs(), "");
    EXPECT_THAT(EventLines(), ElementsAre("[wmiMethod] Could not Get the Next Object. Error code = 0x1"));
    StartMachine(R"({"wmi": {"ROOT\\WMI": null}})");
    EXPECT_EQ(Devs(), "");
    EXPECT_THAT(EventLines(), ElementsAre(HasSubstr("Could not connect")));
}

TEST_F(FirmwareMethodTest, AValueThatIsNoNumberOfTheFirmwaresIsRefusedByPut) {
    EXPECT_EQ(Devs(u"-1"), "");
    EXPECT_THAT(EventLines(), ElementsAre("[wmiMethod] Could not put parameters. Error code = 0x80041005"));
    EXPECT_THAT(CallsOf("ExecMethod"), IsEmpty());
    EXPECT_THAT(Calls(), Not(Contains(HasSubstr("Device_ID"))));
}

} // namespace
