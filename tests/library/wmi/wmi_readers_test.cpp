#include "machine_fixture.h"

#include "firmware/disk_temperature.h"
#include "machine/models/com_objects.h"
#include "platform/com.h"
#include "unicode/utf.h"
#include "wmi/wmi_readers.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace {

using namespace sondrel;
using namespace testing;
using nlohmann::json;
using test::Lines;

/// What differs between the readers' messages.
enum class Wording : std::uint8_t { DebugOnly, Usual, TwoBlanks, Bare };

/// One reader as the exports use it.
struct ReaderCase {
    std::string tag;
    std::function<void(std::uint8_t initCom)> run;
    Wording wording;
    bool takesInitCom = true;
    std::string leaving = "Step7 Do CoUninitialize()";
};

const observer::Operation StepOperations[] = {
    observer::Operation::CoInitializeEx, observer::Operation::CoCreateInstance,
    observer::Operation::ConnectServer, observer::Operation::CoSetProxyBlanket,
    observer::Operation::ExecQuery};

/// What a failed step writes: the event log's text, empty for none, and the debug log's.
std::pair<std::string, std::string> MessagesOf(const ReaderCase& reader, std::size_t step) {
    const std::string tag = '[' + reader.tag + "] ";
    if (reader.wording == Wording::Bare && step >= 2) {
        const std::pair<std::string, std::string> messages[] = {
            {"Could not connect. Error code = 0x80041003",
             "Step4 ReadWMIPropStr2 Could not connect. Error code = 0x"},
            {"Could not set proxy blanket. Error code = 0x80070005",
             "Step5 ReadWMIPropStr2 Could not set proxy blanket. Error code = 0x"},
            {"Query for operating system name failed Error code = 0x80041003",
             "Step6 ReadWMIPropStr2 Query for operating system name failed."}};
        return {tag + messages[step - 2].first, messages[step - 2].second};
    }
    const std::string texts[] = {"Step1 Failed to initialize COM library. Error code = 0x80010106",
                                 "Step3 Failed to create IWbemLocator object. Error code = 0x80040154",
                                 "Step4 Could not connect. Error code = 0x80041003",
                                 "Step5 Could not set proxy blanket. Error code = 0x80070005",
                                 "Step6 Query for operating system name failed. Error code = 0x80041003"};
    const bool blanks = reader.wording == Wording::TwoBlanks && step == 4;
    const std::string event =
        blanks ? "Step6 Query for operating system name failed.  Error code = 0x80041003" : texts[step];
    return {reader.wording == Wording::DebugOnly ? "" : tag + event, tag + texts[step]};
}

std::vector<ReaderCase> AllReaders() {
    const std::u16string space = u"ROOT\\CIMV2";
    const std::u16string query = u"select * from Win32_Processor";
    const auto host = std::make_shared<std::vector<char16_t>>(65536);
    using enum Wording;
    return {{"ReadWMIEnumNum", [=](auto com) { ReadWMIEnumNum(space, query, com); }, DebugOnly},
            {"ReadWMIProp", [=](auto com) { ReadWMIProp(space, query, u"LoadPercentage", com, 0); }, Usual},
            {"ReadWMIPropStr", [=](auto com) { ReadWMIPropStr(space, query, u"Name", com); }, TwoBlanks},
            {"ReadWMISmartData", [=](auto com) { ReadWMISmartData(space, query, com); }, Usual, true,
             "Step7 Do CoUninitialize"},
            {"ReadWMICpuUsage", [=](auto) { AppList_CpuUsage(host->data()); }, TwoBlanks, false},
            {"ReadWMIMemUsage", [=](auto) { AppList_MemUsage(host->data()); }, TwoBlanks, false},
            {"ReadWMIBrightness", [=](auto) { AppList_HardwareConfig(host->data()); }, TwoBlanks, false},
            {"ReadWMIPropStr2",
             [=](auto com) {
                 ReadWMIPropStr2(space, query, {u"A", u"B", u"C"}, {0, 0, 1}, com);
             },
             Bare},
            {"ReadWMIPropStr2",
             [=](auto com) {
                 ReadWMIPropStr2(space, query, {u"A", u"B"}, com, 3);
             },
             Bare}};
}

constexpr std::size_t NoStep = 5;

/// What a call writes and releases when a step fails, or none, in order.
Lines ExpectedJournal(const ReaderCase& reader, std::size_t step, bool initCom) {
    const auto [event, debug] =
        step == NoStep ? std::pair<std::string, std::string>() : MessagesOf(reader, step);
    const bool afterRelease = reader.wording == Wording::Bare && step >= 2;
    const bool good = step == NoStep;
    Lines journal{
        !initCom    ? ""
        : step == 0 ? "CoInitializeEx kind=0 -> 0x80010106 (injected)"
                    : "CoInitializeEx kind=0 -> 1",
        event.empty() ? "" : "event " + event,
        afterRelease || good ? "" : "debug " + debug,
        step >= 3 ? "Release IWbemServices" : "",
        step >= 2 ? "Release IWbemLocator" : "",
        good ? "Release IEnumWbemClassObject" : "",
        afterRelease && !good ? "debug " + debug : "",
        good && initCom ? "debug [" + reader.tag + "] " + reader.leaving : "",
        initCom && step != 0 ? "CoUninitialize" : "",
    };
    std::erase(journal, "");
    return journal;
}

/// Without the lines of the export around the reader, and without what comes after it.
Lines OfTheReader(Lines journal, const ReaderCase& reader) {
    if (!reader.takesInitCom) {
        const auto end = std::ranges::find(journal, "CoUninitialize");
        journal.erase(end == journal.end() ? end : end + 1, journal.end());
        std::erase_if(journal, [](const std::string& line) {
            return line.starts_with("debug AppList_") || line.find("getvolume") != std::string::npos;
        });
    }
    return journal;
}

class WmiSequenceTest : public test::MachineTest {
protected:
    // The host's own apartment, which no call may leave.
    WmiSequenceTest() { platform::CoInitializeEx(platform::apartment::Multithreaded); }

    void TearDown() override {
        EXPECT_EQ(machine::CurrentApartment().entered, 1u);
        platform::CoUninitialize();
        MachineTest::TearDown();
    }
};

TEST_F(WmiSequenceTest, EveryStepOfEveryReaderFailsWithItsOwnTextsAndOrder) {
    for (const ReaderCase& reader : AllReaders()) {
        for (std::size_t place = 0; place < 2 * (NoStep + 1); ++place) {
            const auto initCom = static_cast<std::uint8_t>(place % 2);
            const std::size_t step = place / 2;
            if (initCom == 0 && (step == 0 || !reader.takesInitCom)) {
                continue;
            }
            SCOPED_TRACE(reader.tag + " step " + std::to_string(step));
            const auto run = [&] {
                reader.run(initCom);
            };
            Journal();
            if (step == NoStep) {
                run();
            } else {
                RunFailing(StepOperations[step], 1, Failure::Refused, run);
            }
            auto journal = OfTheReader(Journal(), reader);
            std::erase(journal, "Release IWbemClassObject");
            if (step == 0 && reader.tag == "ReadWMIBrightness") {
                journal.resize(3); // the volume is read all the same
            }
            EXPECT_EQ(journal, ExpectedJournal(reader, step, initCom != 0));
            EXPECT_THAT(OpenThings(), ElementsAre("apartment")) << "the host's own";
        }
    }
}

TEST_F(WmiSequenceTest, TheStepsCarryTheirArguments) {
    EXPECT_EQ(ReadWMIProp(u"root\\cimv2", u"select * from win32_processor", u"LoadPercentage", 0, 0), 14);
    EXPECT_THAT(
        Calls(),
        ElementsAre(
            "CoInitializeEx kind=0 -> 0",
            "CoCreateInstance class={4590f811-1d3a-11d0-891f-00aa004b2e24} context=1 "
            "interface={dc12a687-737f-11cf-884d-00aa004b2e24} -> 0 made=IWbemLocator#2",
            R"(ConnectServer locator=IWbemLocator#2 resource="root\cimv2" -> 0 services=IWbemServices#3)",
            "CoSetProxyBlanket proxy=IWbemServices#3 blanket={authentication=10 authorization=0 "
            "level=3 impersonation=3 capabilities=0} -> 0",
            "ExecQuery services=IWbemServices#3 language=\"WQL\" query=\"select * from "
            "win32_processor\" flags=48 -> 0 rows=IEnumWbemClassObject#4",
            "Next rows=IEnumWbemClassObject#4 timeout=0xffffffff -> 0 row=IWbemClassObject#5 "
            "returned=1",
            "Get object=IWbemClassObject#5 name=\"LoadPercentage\" -> 0 value=14 vartype=3",
            "Release object=IWbemClassObject#5",
            "Next rows=IEnumWbemClassObject#4 timeout=0xffffffff -> 1 returned=0",
            "Release object=IWbemServices#3", "Release object=IWbemLocator#2",
            "Release object=IEnumWbemClassObject#4"));
}

TEST_F(WmiSequenceTest, AClassThatIsNotThereHasNoRowsAndANamespaceCannotBeConnected) {
    EXPECT_EQ(ReadWMIEnumNum(u"ROOT\\CIMV2", u"select * from Win32_Nothing", 1), 0);
    EXPECT_EQ(ReadWMIProp(u"ROOT\\CIMV2", u"select * from Win32_Nothing", u"Number", 1, 0), -1);
    EXPECT_EQ(ReadWMIPropStr(u"ROOT\\CIMV2", u"not a query", u"Name", 1), u"");
    EXPECT_EQ(ReadWMIPropStr2(u"ROOT\\CIMV2", u"select * from Win32_Nothing", {u"A", u"B"}, 1, 0), u"");
    EXPECT_THAT(EventLines(), IsEmpty());
    EXPECT_EQ(ReadWMIPropStr(u"ROOT\\Nowhere", u"select * from Win32_Bios", u"Name", 1), u"");
    EXPECT_THAT(EventLines(),
                ElementsAre("[ReadWMIPropStr] Step4 Could not connect. Error code = 0x8004100e"));
}

class WmiReadersTest : public test::MachineTest {
protected:
    /// A machine whose class C has these rows.
    void SetRows(const json& rows) { StartMachine(json{{"wmi", {{"ROOT\\CIMV2", {{"C", rows}}}}}}.dump()); }

    /// The texts of rows with these values.
    std::u16string Texts(const json& values) {
        json rows = json::array();
        for (const json& value : values) {
            rows.push_back({{"T", value}});
        }
        SetRows(rows);
        return PropStr(u"T");
    }

    static std::u16string PropStr(const std::u16string& property) {
        return ReadWMIPropStr(u"ROOT\\CIMV2", u"select * from C", property, 1);
    }

    static std::int32_t Prop(const std::u16string& property, std::uint8_t isArray) {
        return ReadWMIProp(u"ROOT\\CIMV2", u"select * from C", property, 1, isArray);
    }

    static std::u16string Triples() {
        return ReadWMIPropStr2(u"ROOT\\CIMV2", u"select * from C", {u"A", u"B", u"N"}, {0, 0, 1}, 1);
    }

    static std::u16string Counters(std::size_t nameLength) {
        return ReadWMIPropStr2(u"ROOT\\CIMV2", u"select * from C", {u"A", u"B"}, 1, nameLength);
    }
};

TEST_F(WmiReadersTest, TextsJoinAndEmptyOnesTakePart) {
    EXPECT_EQ(Texts({"A", "", "B"}), u"A;;B");
    EXPECT_THAT(EventLines(), IsEmpty());
    EXPECT_EQ(Texts({"", "B"}), u";B");
    const std::string message = "[ReadWMIPropStr] SysStringLen(temp) == 0 , propname = T";
    EXPECT_THAT(Journal(), Contains("event " + message).Times(1));
    EXPECT_EQ(Texts({""}), u"");
    EXPECT_THAT(Journal(), ElementsAre("CoInitializeEx kind=0 -> 0", "event " + message, "debug " + message,
                                       "Release IWbemClassObject", "Release IWbemServices",
                                       "Release IWbemLocator", "Release IEnumWbemClassObject",
                                       "debug [ReadWMIPropStr] Step7 Do CoUninitialize()", "CoUninitialize"));
    EXPECT_EQ(Texts({nullptr, nullptr}), u";");
    EXPECT_EQ(Texts({5, "B", {"x", "y"}, true, {{"bytes", "4142"}}}), u";B;;;");
    EXPECT_EQ(Texts({std::string("ab\0cd", 5), "e"}), u"ab;e");
    // Codes of a text, up to the first zero.
    EXPECT_EQ(Texts({{72, 105, 0, 33}, {0x20AC}, json::array()}), u"Hi;\u20AC;");
    // The message holds no more than its buffer of the name.
    SetRows({{{"T", ""}}});
    EXPECT_EQ(PropStr(std::u16string(2000, u'\u00E9')), u"");
    EXPECT_THAT(DebugLines().front(), SizeIs(message.size() - 1 + 1022));
}

TEST_F(WmiReadersTest, TheFifthOemStringIsReadForTheArray) {
    SetRows({{{"OEMStringArray", {"a", "b", "c", "d", "fifth", "f"}}},
             {{"OEMStringArray", {"only", "two"}}},
             {{"OEMStringArray", nullptr}}});
    EXPECT_EQ(PropStr(u"OEMStringArray"), u"fifth");
    EXPECT_THAT(EventLines(), IsEmpty());
    // Any other spelling is a plain text property, which an array of texts is not.
    EXPECT_EQ(PropStr(u"oemstringarray"), u";;");
    SetRows({{{"OEMStringArray", {"a", "b", "c", "d"}}}});
    EXPECT_EQ(PropStr(u"OEMStringArray"), u"");
    EXPECT_THAT(EventLines(), IsEmpty());
    SetRows({{{"OEMStringArray", {{"lower_bound", 7}, {"values", {"a", "b", "c", "d", "e"}}}}}});
    EXPECT_EQ(PropStr(u"OEMStringArray"), u"e");
}

TEST_F(WmiReadersTest, TheLastRowWithANumberCounts) {
    SetRows({{{"N", 40}}, {{"N", 80}}, {{"N", nullptr}}, {{"N", "7"}}, {{"N", {5}}}});
    EXPECT_EQ(Prop(u"N", 0), 80);
    EXPECT_EQ(Prop(u"N", 1), 5);
    EXPECT_EQ(Prop(u"Missing", 0), -1);
    SetRows({{{"N", 4294967295}}});
    EXPECT_EQ(Prop(u"N", 0), -1);
    SetRows({{{"N", {10, 3}}}, {{"N", json::array()}}, {{"N", nullptr}}, {{"N", {"10"}}}, {{"N", 3}}});
    EXPECT_EQ(Prop(u"N", 1), 10);
    SetRows({{{"N", {{"bytes", "f0 01"}}}}});
    EXPECT_EQ(Prop(u"N", 1), 240);
    EXPECT_EQ(Prop(u"N", 0), -1);
}

TEST_F(WmiReadersTest, RowsAlreadyReadCountAndAFailedGetAddsNothing) {
    SetRows({{{"N", 40}, {"T", "A"}}, {{"N", 80}, {"T", "B"}}});
    for (const Failure kind : {Failure::Refused, Failure::Nothing}) {
        std::int32_t number = 0;
        RunFailing(Operation::Get, 2, kind, [&] { number = Prop(u"N", 0); });
        EXPECT_EQ(number, 40);
        std::u16string text;
        RunFailing(Operation::Get, 2, kind, [&] { text = PropStr(u"T"); });
        EXPECT_EQ(text, u"A;");
        RunFailing(Operation::Next, 2, kind, [&] { text = PropStr(u"T"); });
        EXPECT_EQ(text, u"A");
        EXPECT_THAT(EventLines(), IsEmpty());
    }
}

TEST_F(WmiReadersTest, TriplesFollowRowAfterRow) {
    SetRows({{{"A", "m1"}, {"B", 99999999999}, {"N", 4}}, {{"A", ""}, {"B", nullptr}, {"N", -3}}});
    EXPECT_EQ(Triples(), u"m1;99999999999;4;;;-3");
    SetRows({{{"A", nullptr}, {"B", 7}, {"N", nullptr}}, {{"A", "m"}, {"B", "s"}, {"N", "4"}}});
    EXPECT_EQ(Triples(), u";;;m;s;");
    SetRows(json::array());
    EXPECT_EQ(Triples(), u"");
}

TEST_F(WmiReadersTest, CountersOfRowsWithANameOfThatLength) {
    SetRows({{{"Name", "abc"}, {"A", "7"}, {"B", "0"}},
             {{"Name", "xyz"}, {"A", "0"}, {"B", "9"}},
             {{"Name", "longer"}, {"A", "1"}, {"B", "1"}}});
    EXPECT_EQ(Counters(3), u"7;9");
    EXPECT_EQ(Counters(6), u"1;1");
    EXPECT_EQ(Counters(5), u"0;0");
    SetRows({{{"Name", nullptr}, {"A", "5"}, {"B", nullptr}}});
    EXPECT_EQ(Counters(0), u"5;");
    SetRows(json::array());
    EXPECT_EQ(Counters(3), u"");
}

TEST_F(WmiReadersTest, ATextOfAMegabyteIsWhole) {
    const std::string megabyte(1 << 20, 'x');
    const std::u16string text = Texts({megabyte, megabyte, "end"});
    EXPECT_EQ(text.size(), 2u * (1 << 20) + 5);
    EXPECT_TRUE(text.ends_with(u"x;end"));
}

TEST_F(WmiReadersTest, TheMachinesQueriesCompareByTheValuesType) {
    SetRows({{{"Id", 1}, {"T", "A"}, {"Flag", true}, {"Code", 2147483648}, {"Big", "7"}},
             {{"Id", 2}, {"T", "\"no\" \\ it's"}, {"Flag", false}, {"Code", 10}, {"Big", 99999999999}},
             {{"Id", 3}, {"T", nullptr}, {"Flag", nullptr}, {"Code", -1}, {"Big", nullptr}}});
    const std::pair<std::int32_t, std::vector<std::u16string>> queries[] = {
        {1, {u"where t='a'", u"where flag='true'"}},
        {2,
         {u"WHERE t = \"\\\"no\\\" \\\\ it's\"", u"where t != 'a'", u"where flag=false", u"where Code='10'",
          u"where big=99999999999 and id<>1"}},
        {3, {u"where Code <> 10", u"where Code = -1"}},
        {-1,
         {u"where", u"where id=", u"where id=1 and", u"where t='A", u"where id=1 or id=2", u"where no=1"}}};
    for (const auto& [id, texts] : queries) {
        for (const std::u16string& where : texts) {
            EXPECT_EQ(ReadWMIProp(u"\\\\.\\root\\cimv2", u"select * from c " + where, u"Id", 1, 0), id)
                << unicode::Utf8FromWide(where);
        }
    }
}

} // namespace
