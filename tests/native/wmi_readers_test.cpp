#include "wmi_fixture.h"

#include "firmware/disk_temperature.h"
#include "platform/com.h"
#include "platform/simulated/apartments.h"
#include "wmi/wmi_readers.h"

#include <functional>
#include <thread>

namespace {

using namespace sondrel;
using machine::Failure;
using machine::Operation;
using nlohmann::json;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

/// One reader as the exports use it, and what its failed steps write, behind "event " and "debug ".
struct ReaderCase {
    std::string tag;
    std::function<void(std::uint8_t initCom)> run;
    bool takesInitCom;
    std::string leaving;
    std::string events[5]; // all empty: nothing goes to the event log
    std::string debugs[5];
    bool debugAfterRelease;
};

constexpr Operation StepOperations[] = {Operation::CoInitializeEx, Operation::CoCreateInstance,
                                        Operation::ConnectServer, Operation::CoSetProxyBlanket,
                                        Operation::ExecQuery};
const std::string StepCodes[] = {"80010106", "80040154", "80041003", "80070005", "80041003"};

ReaderCase Usual(const std::string& tag, std::function<void(std::uint8_t)> run, bool takesInitCom,
                 bool twoBlanks) {
    ReaderCase reader{tag, std::move(run), takesInitCom, "[" + tag + "] Step7 Do CoUninitialize()", {},
                      {},  false};
    const std::string texts[] = {"Step1 Failed to initialize COM library. Error code = 0x",
                                 "Step3 Failed to create IWbemLocator object. Error code = 0x",
                                 "Step4 Could not connect. Error code = 0x",
                                 "Step5 Could not set proxy blanket. Error code = 0x",
                                 "Step6 Query for operating system name failed. Error code = 0x"};
    for (std::size_t step = 0; step < 5; ++step) {
        reader.debugs[step] = "[" + tag + "] " + texts[step] + StepCodes[step];
        reader.events[step] = reader.debugs[step];
    }
    if (twoBlanks) {
        reader.events[4] =
            "[" + tag + "] Step6 Query for operating system name failed.  Error code = 0x80041003";
    }
    return reader;
}

std::vector<ReaderCase> AllReaders() {
    const std::u16string space = u"ROOT\\CIMV2";
    const std::u16string query = u"select * from Win32_Processor";
    std::vector<char16_t> out(65536);
    const auto host = std::make_shared<std::vector<char16_t>>(65536);
    std::vector<ReaderCase> readers;
    readers.push_back(Usual(
        "ReadWMIEnumNum", [=](auto com) { ReadWMIEnumNum(space, query, com); }, true, false));
    for (std::string& event : readers.back().events) {
        event.clear();
    }
    readers.push_back(Usual(
        "ReadWMIProp", [=](auto com) { ReadWMIProp(space, query, u"LoadPercentage", com, 0); }, true, false));
    readers.push_back(Usual(
        "ReadWMIPropStr", [=](auto com) { ReadWMIPropStr(space, query, u"Name", com); }, true, true));
    readers.push_back(Usual(
        "ReadWMISmartData", [=](auto com) { ReadWMISmartData(space, query, com); }, true, false));
    readers.back().leaving = "[ReadWMISmartData] Step7 Do CoUninitialize";
    readers.push_back(Usual(
        "ReadWMICpuUsage", [=](auto) { AppList_CpuUsage(host->data()); }, false, true));
    readers.push_back(Usual(
        "ReadWMIMemUsage", [=](auto) { AppList_MemUsage(host->data()); }, false, true));
    readers.push_back(Usual(
        "ReadWMIBrightness", [=](auto) { AppList_HardwareConfig(host->data()); }, false, true));
    for (const bool counters : {false, true}) {
        ReaderCase reader = Usual(
            "ReadWMIPropStr2",
            [=](auto com) {
                if (counters) {
                    ReadWMIPropStr2(space, query, {u"Name", u"Name"}, com, 3);
                } else {
                    ReadWMIPropStr2(space, query, {u"Name", u"Name", u"LoadPercentage"}, {0, 0, 1}, com);
                }
            },
            true, false);
        reader.events[2] = "[ReadWMIPropStr2] Could not connect. Error code = 0x80041003";
        reader.debugs[2] = "Step4 ReadWMIPropStr2 Could not connect. Error code = 0x";
        reader.events[3] = "[ReadWMIPropStr2] Could not set proxy blanket. Error code = 0x80070005";
        reader.debugs[3] = "Step5 ReadWMIPropStr2 Could not set proxy blanket. Error code = 0x";
        reader.events[4] = "[ReadWMIPropStr2] Query for operating system name failed Error code = 0x80041003";
        reader.debugs[4] = "Step6 ReadWMIPropStr2 Query for operating system name failed.";
        reader.debugAfterRelease = true;
        readers.push_back(std::move(reader));
    }
    return readers;
}

/// What a call writes and gives back when a step fails, in order.
std::vector<std::string> ExpectedAtFailure(const ReaderCase& reader, std::size_t step, bool initCom) {
    std::vector<std::string> journal;
    if (initCom) {
        journal.emplace_back(step == 0 ? "CoInitializeEx multithreaded = -2147417850"
                                       : "CoInitializeEx multithreaded = 1");
    }
    if (!reader.events[step].empty()) {
        journal.push_back("event " + reader.events[step]);
    }
    std::vector<std::string> releases;
    if (step >= 3) {
        releases.emplace_back("Release IWbemServices");
    }
    if (step >= 2) {
        releases.emplace_back("Release IWbemLocator");
    }
    const bool late = reader.debugAfterRelease && step >= 2;
    if (!late) {
        journal.push_back("debug " + reader.debugs[step]);
    }
    journal.insert(journal.end(), releases.begin(), releases.end());
    if (late) {
        journal.push_back("debug " + reader.debugs[step]);
    }
    if (initCom && step != 0) {
        journal.emplace_back("CoUninitialize");
    }
    return journal;
}

/// Without the lines of the export around the reader, and without what comes after it.
std::vector<std::string> OfTheReader(std::vector<std::string> journal, const ReaderCase& reader) {
    if (!reader.takesInitCom) {
        const auto end = std::ranges::find(journal, "CoUninitialize");
        journal.erase(end == journal.end() ? end : end + 1, journal.end());
        std::erase_if(journal, [](const std::string& line) {
            return line.starts_with("debug AppList_") || line.find("getvolume") != std::string::npos;
        });
    }
    return journal;
}

class WmiSequenceTest : public test::WmiTest {
protected:
    // The host's own apartment, which no call may leave.
    WmiSequenceTest() { platform::CoInitializeEx(platform::apartment::Multithreaded); }

    ~WmiSequenceTest() override {
        EXPECT_EQ(machine::CurrentApartment().entered, 1u);
        platform::CoUninitialize();
    }
};

TEST_F(WmiSequenceTest, EveryStepOfEveryReaderFailsWithItsOwnTextsAndOrder) {
    for (const ReaderCase& reader : AllReaders()) {
        for (const std::uint8_t initCom : {std::uint8_t{0}, std::uint8_t{1}}) {
            for (std::size_t step = initCom != 0 ? 0 : 1; step < 5; ++step) {
                if (initCom == 0 && !reader.takesInitCom) {
                    continue;
                }
                SCOPED_TRACE(reader.tag + " step " + std::to_string(step));
                RunFailing(StepOperations[step], 1, Failure::Refused, [&] { reader.run(initCom); });
                auto journal = OfTheReader(Journal(), reader);
                if (step == 0 && reader.tag == "ReadWMIBrightness") {
                    journal.resize(3); // the volume is read all the same
                }
                EXPECT_THAT(journal, ElementsAreArray(ExpectedAtFailure(reader, step, initCom != 0)));
                EXPECT_THAT(TheMachine().gate.OpenThings(), IsEmpty());
            }
        }
    }
}

TEST_F(WmiSequenceTest, AGoodRunEndsWithServiceLocatorEnumeratorAndApartment) {
    for (const ReaderCase& reader : AllReaders()) {
        SCOPED_TRACE(reader.tag);
        Journal();
        reader.run(1);
        auto journal = OfTheReader(Journal(), reader);
        std::erase(journal, "Release IWbemClassObject");
        EXPECT_THAT(journal, ElementsAre("CoInitializeEx multithreaded = 1", "Release IWbemServices",
                                         "Release IWbemLocator", "Release IEnumWbemClassObject",
                                         "debug " + reader.leaving, "CoUninitialize"));
        if (reader.takesInitCom) {
            reader.run(0);
            EXPECT_THAT(Journal(), ::testing::Not(Contains(::testing::HasSubstr("Uninit"))));
        }
    }
}

TEST_F(WmiSequenceTest, TheStepsCarryTheirArguments) {
    StartMachine();
    EXPECT_EQ(ReadWMIProp(u"root\\cimv2", u"select * from win32_processor", u"LoadPercentage", 0, 0), 14);
    EXPECT_THAT(Calls(),
                ElementsAre("CoCreateInstance context 1 = 0", "ConnectServer root\\cimv2 = 0",
                            "CoSetProxyBlanket 10 0 3 3 0 = 0",
                            "ExecQuery WQL flags 48 select * from win32_processor = 0", "Next infinite = 0",
                            "Get LoadPercentage = 0", "Release IWbemClassObject", "Next infinite = 1",
                            "Release IWbemServices", "Release IWbemLocator", "Release IEnumWbemClassObject"));
}

TEST_F(WmiSequenceTest, AThreadInTheOtherApartmentFailsAtTheFirstStepAndStaysInIt) {
    std::thread([&] {
        platform::CoInitializeEx(platform::apartment::SingleThreaded);
        Journal();
        EXPECT_EQ(ReadWMIEnumNum(u"ROOT\\CIMV2", u"select * from Win32_Bios", 1), -1);
        EXPECT_THAT(Journal(),
                    ElementsAre("CoInitializeEx multithreaded = -2147417850",
                                "debug [ReadWMIEnumNum] Step1 Failed to initialize COM library. Error code = "
                                "0x80010106"));
        EXPECT_EQ(machine::CurrentApartment().entered, 1u);
        EXPECT_EQ(ReadWMIEnumNum(u"ROOT\\CIMV2", u"select * from Win32_Bios", 0), 1);
        platform::CoUninitialize();
    }).join();
}

TEST_F(WmiSequenceTest, RowsThatCameBeforeNextFailsStand) {
    const json rows = {{{"Caption", "A"}}, {{"Caption", "B"}}, {{"Caption", "C"}}};
    StartWith("ROOT\\CIMV2", "Win32_VideoController", rows);
    for (const Failure kind : {Failure::Refused, Failure::Nothing}) {
        std::u16string text;
        RunFailing(Operation::Next, 3, kind, [&] { text = Text(WMIGetGPUInfo); });
        EXPECT_EQ(text, u"A;B");
        EXPECT_THAT(EventLines(), IsEmpty());
    }
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

class WmiReadersTest : public test::WmiTest {
protected:
    void SetRows(const json& rows) { StartWith("ROOT\\CIMV2", "C", rows); }

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
    const auto texts = [&](const json& values) {
        json rows = json::array();
        for (const json& value : values) {
            rows.push_back({{"T", value}});
        }
        SetRows(rows);
        return PropStr(u"T");
    };
    EXPECT_EQ(texts({"A", "", "B"}), u"A;;B");
    EXPECT_THAT(EventLines(), IsEmpty());
    EXPECT_EQ(texts({"", "B"}), u";B");
    const std::string message = "[ReadWMIPropStr] SysStringLen(temp) == 0 , propname = T";
    EXPECT_THAT(Journal(), Contains("event " + message).Times(1));
    EXPECT_EQ(texts({""}), u"");
    EXPECT_THAT(Journal(),
                ElementsAre("CoInitializeEx multithreaded = 0", "event " + message, "debug " + message,
                            "Release IWbemClassObject", "Release IWbemServices", "Release IWbemLocator",
                            "Release IEnumWbemClassObject",
                            "debug [ReadWMIPropStr] Step7 Do CoUninitialize()", "CoUninitialize"));
    EXPECT_EQ(texts({nullptr, nullptr}), u";");
    EXPECT_EQ(texts({5, "B", {"x", "y"}, true, {{"bytes", "4142"}}}), u";B;;;");
    EXPECT_EQ(texts({std::string("ab\0cd", 5), "e"}), u"ab;e");
    // Codes of a text, up to the first zero.
    EXPECT_EQ(texts({{72, 105, 0, 33}, {0x20AC}, json::array()}), u"Hi;\u20AC;");
}

TEST_F(WmiReadersTest, TheMessageAboutAnEmptyTextHoldsABoundedName) {
    SetRows({{{"T", ""}}});
    const std::u16string name(2000, u'\u00E9');
    EXPECT_EQ(PropStr(name), u"");
    const std::vector<std::string> lines = DebugLines();
    EXPECT_EQ(lines.front().size(),
              std::string("[ReadWMIPropStr] SysStringLen(temp) == 0 , propname = ").size() + 1022);
}

TEST_F(WmiReadersTest, TheFifthOemStringStandsForTheArray) {
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

TEST_F(WmiReadersTest, AFailedGetYieldsNothingAndNoStaleValue) {
    SetRows({{{"N", 40}, {"T", "A"}}, {{"N", 80}, {"T", "B"}}});
    for (const Failure kind : {Failure::Refused, Failure::Nothing}) {
        std::int32_t number = 0;
        RunFailing(Operation::Get, 2, kind, [&] { number = Prop(u"N", 0); });
        EXPECT_EQ(number, 40);
        std::u16string text;
        RunFailing(Operation::Get, 2, kind, [&] { text = PropStr(u"T"); });
        EXPECT_EQ(text, u"A;");
    }
}

TEST_F(WmiReadersTest, TriplesStandRowAfterRow) {
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

TEST_F(WmiReadersTest, TextsOfAMegabyteAndManyRows) {
    const std::string megabyte(1 << 20, 'x');
    SetRows({{{"T", megabyte}}, {{"T", megabyte}}, {{"T", "end"}}});
    const std::u16string text = PropStr(u"T");
    EXPECT_EQ(text.size(), 2u * (1 << 20) + 5);
    EXPECT_TRUE(text.ends_with(u"x;end"));
    json rows = json::array();
    for (int row = 0; row < 20000; ++row) {
        rows.push_back({{"T", ""}});
    }
    rows.push_back({{"T", "last"}});
    SetRows(rows);
    TheMachine().gate.Transcribe({});
    EXPECT_EQ(PropStr(u"T"), std::u16string(20000, u';') + u"last");
    EXPECT_THAT(EventLines().size(), 1u);
}

} // namespace
