#include "machine_fixture.h"

#include "firmware/firmware_method.h"
#include "machine/models/trace_sink.h"
#include "platform/com.h"
#include "unicode/utf.h"

namespace {

using namespace testing;
using test::Lines;

class FirmwareMethodTest : public test::MachineTest {
protected:
    static std::string Dsts(const char16_t* id, std::uint8_t initCom = 1) {
        return unicode::Utf8FromWide(
            sondrel::wmiMethod(u"DSTS", {{u"Device_ID", id}}, u"device_status", initCom));
    }

    static std::string Devs(const char16_t* status = u"80") {
        return unicode::Utf8FromWide(sondrel::wmiMethod(
            u"DEVS", {{u"Device_ID", u"1179735"}, {u"Control_status", status}}, u"result", 1));
    }
};

TEST_F(FirmwareMethodTest, WalksThirteenStepsAndGivesEverythingBackInOrder) {
    machine::Traces().Detach();
    EXPECT_EQ(Devs(), "1");
    const std::string path = R"(\\.\ROOT\WMI:VeskZrnWmi_WMNB.InstanceName="ACPI\\PNP0C14\\VESK_0")";
    EXPECT_THAT(
        Calls(),
        ElementsAre(
            "CoInitializeEx kind=0 -> 0", HasSubstr(" context=1 "),
            R"(ConnectServer locator=IWbemLocator#2 resource="ROOT\WMI" -> 0 services=IWbemServices#3)",
            "CoSetProxyBlanket proxy=IWbemServices#3 blanket={authentication=10 authorization=0 level=3 "
            "impersonation=3 capabilities=0} -> 0",
            "ExecQuery services=IWbemServices#3 language=\"WQL\" query=\"Select * from VeskZrnWmi_WMNB\" "
            "flags=48 "
            "-> 0 rows=IEnumWbemClassObject#4",
            "Next rows=IEnumWbemClassObject#4 timeout=0xffffffff -> 0 row=IWbemClassObject#5 returned=1",
            "GetObject services=IWbemServices#3 path=\"VeskZrnWmi_WMNB\" -> 0 definition=IWbemClassObject#6",
            "GetMethod definition=IWbemClassObject#6 name=\"DEVS\" -> 0 signature=IWbemClassObject#7",
            "SpawnInstance definition=IWbemClassObject#7 -> 0 instance=IWbemClassObject#8",
            "Put object=IWbemClassObject#8 name=\"Control_status\" text=\"80\" type=19 -> 0",
            "Put object=IWbemClassObject#8 name=\"Device_ID\" text=\"1179735\" type=19 -> 0",
            "Get object=IWbemClassObject#5 name=\"__PATH\" -> 0 value=\"" + path + "\" vartype=8",
            "ExecMethod services=IWbemServices#3 path=\"" + path +
                "\" method=\"DEVS\" parameters=IWbemClassObject#8 -> 0 out=IWbemClassObject#9",
            "Get object=IWbemClassObject#9 name=\"result\" -> 0 value=1 vartype=3",
            StartsWith("Release object=IWbemClassObject"), StartsWith("Release object=IWbemClassObject"),
            StartsWith("Release object=IWbemClassObject"), StartsWith("Release object=IWbemClassObject"),
            StartsWith("Release object=IWbemClassObject"), "Release object=IEnumWbemClassObject#4",
            "Release object=IWbemLocator#2", "Release object=IWbemServices#3", "CoUninitialize"));
}

TEST_F(FirmwareMethodTest, LeavesTheCallersApartmentAlone) {
    DebugLines();
    ASSERT_EQ(platform::CoInitializeEx(platform::apartment::SingleThreaded), platform::hresult::Ok);
    EXPECT_EQ(Dsts(u"1179735", 0), "65536");
    EXPECT_THAT(DebugLines(), ElementsAre("[wmiMethod] varReturnValue is 65536"));
    EXPECT_THAT(CallsOf(Operation::CoUninitialize), IsEmpty());
    EXPECT_EQ(Dsts(u"1179735", 1), "") << "the thread is in another kind of apartment";
    EXPECT_THAT(CallsOf(Operation::CoUninitialize), IsEmpty());
    platform::CoUninitialize();
    EXPECT_EQ(Dsts(u"1179735", 1), "65536");
}

TEST_F(FirmwareMethodTest, ReportsEveryFailedStepInBothLogs) {
    struct Row {
        Operation operation;
        std::size_t use;
        std::string event;
        std::string debug = event;
        Failure kind = Failure::Refused;
    };

    const Row rows[] = {
        {Operation::CoInitializeEx, 1, "Step1 Failed to initialize COM library. Error code = 0x80010106"},
        {Operation::CoCreateInstance, 1,
         "Step3 Failed to create IWbemLocator object. Error code = 0x80040154"},
        {Operation::ConnectServer, 1, "Step4 Could not connect. Error code = 0x80041003"},
        {Operation::CoSetProxyBlanket, 1, "Step5 Could not set proxy blanket. Error code = 0x80070005"},
        {Operation::ExecQuery, 1, " Step6 Could not ExecQuery. Error code = 0x80041003",
         "Step6 Could not ExecQuery. Error code = 0x80041003"},
        {Operation::Next, 1, "Could not Get the Next Object. Error code = 0x80041010"},
        {Operation::GetObject, 1, "Could not GetObject. Error code = 0x80041002"},
        {Operation::GetMethod, 1, "Could not GetMethod. Error code = 0x80041002"},
        {Operation::SpawnInstance, 1, "Could not SpawnInstance. Error code = 0x80041006"},
        {Operation::Put, 1, "Could not put parameters. Error code = 0x80041005"},
        {Operation::Put, 2, "Could not put parameters. Error code = 0x80041005"},
        {Operation::Get, 1, "Could not Get method retrieves. Error code = 0x80041002"},
        {Operation::ExecMethod, 1, "Could not execute method.Error code = 0x80041024",
         "Could not execute method. Error code = 0x80041024"},
        {Operation::Get, 2, "Could not get output.Error code = 0x80041002",
         "Could not get output. Error code = 0x80041002"},
        // Success without an object is a failure of that step.
        {Operation::Next, 1, "Could not Get the Next Object. Error code = 0x1",
         "Could not Get the Next Object. Error code = 0x1", Failure::Nothing},
        {Operation::GetMethod, 1, "Could not GetMethod. Error code = 0x0",
         "Could not GetMethod. Error code = 0x0", Failure::Nothing},
        {Operation::ExecMethod, 1, "Could not execute method.Error code = 0x0",
         "Could not execute method. Error code = 0x0", Failure::Nothing},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.event);
        std::string answer;
        RunFailing(row.operation, row.use, row.kind, [&] { answer = Devs(); });
        EXPECT_EQ(answer, "");
        EXPECT_THAT(EventLines(), ElementsAre("[wmiMethod] " + row.event));
        Lines lines{"[wmiMethod] " + row.debug};
        if (row.operation != Operation::CoInitializeEx) {
            lines.emplace_back("[wmiMethod] Do CoUninitialize()");
        }
        EXPECT_EQ(DebugLines(), lines);
    }
}

TEST_F(FirmwareMethodTest, ANumberHasItsSignOnlyOnTheWayBack) {
    EXPECT_EQ(Dsts(u"7"), "-2"); // 0xFFFFFFFE: the firmware knows no such id
    EXPECT_EQ(Devs(u"-1"), "");
    EXPECT_THAT(EventLines(), ElementsAre("[wmiMethod] Could not put parameters. Error code = 0x80041005"));
    EXPECT_THAT(CallsOf(Operation::Put), SizeIs(2)) << "the second parameter is not put any more";
}

} // namespace
