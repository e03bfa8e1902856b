#include "machine_fixture.h"

#include "platform/simulated/profile.h"
#include "platform/simulated/wide_text.h"
#include "radio/wifi_snapshot.h"
#include "vesk_sondrel.h"

#include <array>
#include <map>
#include <thread>

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr std::int32_t Failed = 0x7FFFFFFF;
constexpr const char* Start = "RF_ReadWifi_Info Start";
constexpr const char* End = "RF_ReadWifi_Info End";
constexpr const char* Interface = "[DLL][Wrieless]InterfaceGUID";

class WifiTest : public test::MachineTest {
protected:
    WifiTest() { Forget(); }

    /// The record as at the library's load.
    static void Forget() { sondrel::WiFiSnapshot = {}; }

    static std::string CardName() {
        std::array<VeskChar16, 257> name;
        name.fill(u'#');
        RF_WiFiCardName(name.data());
        return machine::Utf8FromWide(name.data());
    }

    static std::string AccessPointPrefix() {
        std::array<char, 13> text;
        text.fill('#');
        RF_AP_MAC(text.data());
        return text.data();
    }

    /// All fields, each through its export, in this order.
    static std::string Fields() {
        std::string fields = std::to_string(RF_WiFiIsConnected());
        fields += '|' + CardName();
        fields += '|' + std::to_string(RF_WiFiRssi());
        fields += '|' + std::to_string(RF_WiFiChannel());
        fields += '|' + RF_PhyMode();
        fields += '|' + AccessPointPrefix();
        fields += '|' + std::to_string(RF_WiFiMaxRate());
        return fields;
    }

    static constexpr const char* AllFailed =
        "2147483647|error_string|2147483647|2147483647|error_string|error_string|2147483647";

    static void StartBuiltIn(const char* name) {
        machine::Start(machine::LoadProfile(name), ":memory:");
        Forget();
    }
};

TEST_F(WifiTest, ReadsTheLinkOnceAndInOrder) {
    EXPECT_EQ(Fields(), "1|Farrow WF-7 Wireless LAN|-52|36|802.11ac|02:1A:2B|867");
    EXPECT_THAT(DebugLines(), ElementsAre("[RF] RF_WiFiIsConnected FLAG FALSE", Start, Interface, End));
    std::vector<std::string> calls = Calls();
    std::erase_if(calls, [](const std::string& call) { return call.starts_with("Event"); });
    EXPECT_THAT(calls, ElementsAre("WlanOpenHandle version 2 = 0", "WlanEnumInterfaces = 0",
                                   "StringFromGUID2 {5E1B8C0F-3D2A-4B71-9C44-7A60D1F2E385} = 39",
                                   "WlanQueryInterface opcode 7 = 0", "WlanQueryInterface opcode 8 = 0",
                                   "WlanGetNetworkBssList type 1 security 1 = 0", "WlanCloseHandle"));
    StartMachine(R"({"wifi": {"service": "stopped"}})");
    EXPECT_EQ(RF_WiFiRssi(), -52); // what changes later is not seen
    EXPECT_THAT(Calls(), IsEmpty());
}

TEST_F(WifiTest, AnswersForEveryKindOfMachine) {
    const auto fieldsOf = [](const char* machine) {
        StartBuiltIn(machine);
        return Fields();
    };
    EXPECT_EQ(fieldsOf("radios-none"), "-1000|init_string|-1000|-1000|init_string|init_string|-1000");
    EXPECT_EQ(sondrel::WiFiSnapshot.valid, 1);
    EXPECT_EQ(fieldsOf("radios-two"), "0|USB wireless stick|-67|6|802.11n|06:00:10|135");
    EXPECT_EQ(fieldsOf("wifi-open"), "1|Norvik Wireless AX 210|-44|11|ERP|0A:11:22|0");
    EXPECT_EQ(fieldsOf("wifi-ht"), "1|Norvik Wireless AX 210|-44|44|802.11n|0A:11:22|300");
    EXPECT_EQ(fieldsOf("wifi-vht160"), "1|Norvik Wireless AX 210|-44|36|802.11ac|0A:11:22|0");
    EXPECT_EQ(fieldsOf("wifi-he"), "1|Norvik Wireless AX 210|-44|36|802.11ax|0A:11:22|1170");
}

TEST_F(WifiTest, EachExportNamesItselfAndTriesAgainWhileReadsFail) {
    StartMachine(R"({"wifi": {"service": "stopped"}})");
    EXPECT_EQ(Fields(), AllFailed);
    std::vector<std::string> expected;
    for (const char* name : {"RF_WiFiIsConnected", "RF_WiFiCardName", "RF_WiFiRssi", "RF_WiFiChannel",
                             "RF_PhyMode", "RF_AP_MAC", "RF_WiFiMaxRate"}) {
        expected.insert(expected.end(), {"[RF] " + std::string(name) + " FLAG FALSE", Start,
                                         "WlanOpenHandle failed with error:1062"});
    }
    EXPECT_EQ(DebugLines(), expected);
    StartMachine(R"({"wifi": {"service": "missing"}})");
    EXPECT_EQ(RF_WiFiRssi(), Failed);
    EXPECT_THAT(DebugLines(), Contains("WlanOpenHandle failed with error:126"));
    // A good read that has nothing for a field leaves there what the failed one wrote.
    StartMachine(R"({"wifi": {"interfaces": [{"description": "Card", "state": "disconnected"}]}})");
    EXPECT_EQ(Fields(), "0|Card|2147483647|2147483647|error_string|error_string|2147483647");
    EXPECT_THAT(DebugLines(), ElementsAre("[RF] RF_WiFiIsConnected FLAG FALSE", Start, Interface, End));
}

TEST_F(WifiTest, EveryCallThatFailsIsHandledAndLeavesNothingOpen) {
    std::map<std::string, std::string> outcomes;
    TheMachine().gate.KeepHistory(true);
    for (const auto kind : {machine::Failure::Refused, machine::Failure::Nothing}) {
        for (std::uint64_t nth = 1;; ++nth) {
            Forget();
            TheMachine().gate.Restart({.nth = nth, .kind = kind});
            const std::int32_t connected = RF_WiFiIsConnected();
            if (nth > TheMachine().gate.CallCount()) {
                break;
            }
            EXPECT_THAT(TheMachine().gate.OpenThings(), IsEmpty());
            if (TheMachine().gate.Injected() == 0) {
                continue;
            }
            const auto operation = TheMachine().gate.History()[nth - 1];
            std::string outcome = std::string(machine::RowOf(operation).name) +
                                  (kind == machine::Failure::Refused ? " refused" : " empty");
            if (connected == 1 && outcomes.contains(outcome)) {
                outcome += " again"; // the second WlanQueryInterface
            }
            TheMachine().gate.Restart();
            outcomes[outcome] = Fields();
            if (connected == Failed) {
                // The next export has read again, and well.
                EXPECT_EQ(outcomes[outcome], "1|Farrow WF-7 Wireless LAN|-52|36|802.11ac|02:1A:2B|867");
                outcomes[outcome] = "failed";
            }
        }
    }
    std::erase_if(outcomes, [](const auto& each) { return each.first.starts_with("Event"); });
    const std::string whole = "1|Farrow WF-7 Wireless LAN|-52|36|802.11ac|02:1A:2B|867";
    const std::string noChannel = "1|Farrow WF-7 Wireless LAN|-52|-1000|802.11ac|02:1A:2B|867";
    const std::map<std::string, std::string> expected{
        {"StringFromGUID2 refused", whole},
        {"WlanEnumInterfaces empty", "-1000|init_string|-1000|-1000|init_string|init_string|-1000"},
        {"WlanEnumInterfaces refused", "failed"},
        {"WlanGetNetworkBssList empty", "1|Farrow WF-7 Wireless LAN|-1000|36|802.11ac|02:1A:2B|-1000"},
        {"WlanGetNetworkBssList refused", "failed"},
        {"WlanOpenHandle refused", "failed"},
        {"WlanQueryInterface empty", "failed"},
        {"WlanQueryInterface empty again", noChannel},
        {"WlanQueryInterface refused", "failed"},
        {"WlanQueryInterface refused again", noChannel}};
    EXPECT_EQ(outcomes, expected);
}

TEST_F(WifiTest, FailedStepsWriteNoEndLine) {
    const auto linesWithout = [](std::string_view operation) {
        Forget();
        TheMachine().gate.KeepHistory(true);
        TheMachine().gate.Restart();
        RF_WiFiRssi();
        std::uint64_t nth = 0;
        for (const auto each : TheMachine().gate.History()) {
            ++nth;
            if (machine::RowOf(each).name == operation) {
                break;
            }
        }
        Forget();
        DebugLines();
        TheMachine().gate.Restart({.nth = nth});
        RF_WiFiRssi();
        EXPECT_EQ(TheMachine().gate.Injected(), 1u);
        return DebugLines();
    };
    const char* flag = "[RF] RF_WiFiRssi FLAG FALSE";
    EXPECT_THAT(linesWithout("WlanEnumInterfaces"),
                ElementsAre(flag, Start, "WlanEnumInterfaces failed with error:5"));
    EXPECT_THAT(linesWithout("WlanQueryInterface"), ElementsAre(flag, Start, Interface));
    EXPECT_THAT(linesWithout("WlanGetNetworkBssList"), ElementsAre(flag, Start, Interface));
    EXPECT_THAT(linesWithout("StringFromGUID2"),
                ElementsAre(flag, Start, "[DLL][Wrieless]StringFromGUID2 failed", End));
}

/// A machine whose one interface is connected to the network "Net" at 02:00:00:00:00:01, with these in reach.
std::string Reach(const std::string& accessPoints, const std::string& ssid = "Net") {
    return R"({"wifi": {"interfaces": [{"description": "Card", "state": "connected", "channel": 1,
        "connection": {"ssid": ")" +
           ssid + R"(", "bssid": "02:00:00:00:00:01", "phy": "ht"}, "access_points": [)" + accessPoints +
           "]}]}}";
}

TEST_F(WifiTest, MatchesAnAccessPointByBothItsNames) {
    const auto rssi = [this](const std::string& accessPoints, const std::string& ssid = "Net") {
        StartMachine(Reach(accessPoints, ssid));
        Forget();
        return RF_WiFiRssi();
    };
    const auto point = [](const std::string& ssid, const std::string& lastOctet, int dbm) {
        return R"({"ssid": ")" + ssid + R"(", "bssid": "02:00:00:00:00:)" + lastOctet + R"(", "rssi": )" +
               std::to_string(dbm) + "}";
    };
    const std::string longest = "A name of thirty-two characters.";
    EXPECT_EQ(rssi(""), -1000);
    EXPECT_EQ(rssi(point("Net", "02", -10) + "," + point("Other", "01", -20)), -1000);
    EXPECT_EQ(RF_WiFiMaxRate(), -1000);
    EXPECT_EQ(RF_PhyMode(), "802.11n");
    EXPECT_EQ(rssi(point("Net", "02", -10) + "," + point("Net", "01", -30) + "," + point("Net", "01", -40)),
              -30); // the first match
    EXPECT_EQ(RF_WiFiMaxRate(), 0);
    EXPECT_EQ(rssi(point("Ne", "01", -10) + "," + point("Nets", "01", -20)), -1000);
    EXPECT_EQ(rssi(point(longest, "01", -50), longest), -50); // fills its field, no terminator
    EXPECT_EQ(rssi(point("Net\\u0000one", "01", -55), "Net\\u0000two"), -55);
    EXPECT_EQ(rssi(point("", "01", -60), ""), -60); // a hidden name
}

TEST_F(WifiTest, NamesEveryPhyType) {
    const std::vector<std::string> expected{"Other",    "FHSS",     "DHSS",     "IR baseband",
                                            "OFDM",     "HRDSSS",   "ERP",      "802.11n",
                                            "802.11ac", "802.11ad", "802.11ax", "Other"};
    for (std::size_t phy = 0; phy < expected.size(); ++phy) {
        StartMachine(R"({"wifi": {"interfaces": [{"description": "Card", "state": "connected", "connection":
            {"ssid": "", "bssid": "02:00:00:00:00:01", "phy_number": )" +
                     std::to_string(phy) + "}}]}}");
        Forget();
        EXPECT_EQ(RF_PhyMode(), expected[phy]) << phy;
    }
}

TEST_F(WifiTest, CopiesADescriptionOfFullLengthWhole) {
    const std::string longest(256, 'x');
    StartMachine(R"({"wifi": {"interfaces": [{"description": ")" + longest + R"("}]}})");
    EXPECT_EQ(CardName(), longest);
}

TEST_F(WifiTest, ThreadsThatComeAtOnceShareOneRead) {
    std::vector<std::string> answers(8);
    std::vector<std::thread> threads;
    threads.reserve(answers.size());
    for (std::string& answer : answers) {
        threads.emplace_back([&answer] { answer = Fields(); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_THAT(answers, ::testing::Each("1|Farrow WF-7 Wireless LAN|-52|36|802.11ac|02:1A:2B|867"));
    EXPECT_THAT(CallsOf("WlanOpenHandle"), SizeIs(1));
}

} // namespace
