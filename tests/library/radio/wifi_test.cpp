#include "machine_fixture.h"

#include "machine/profile/profile.h"
#include "radio/wifi_snapshot.h"

#include <thread>

namespace {

using namespace testing;
using test::Lines;

constexpr const char* ReadStarts = "RF_ReadWifi_Info Start";
constexpr const char* ReadEnds = "RF_ReadWifi_Info End";
constexpr const char* Interface = "[DLL][Wrieless]InterfaceGUID";
constexpr const char* WholeLink = "1|Farrow WF-7 Wireless LAN|-52|36|802.11ac|02:1A:2B|867";
constexpr const char* NotRead = "-1000|init_string|-1000|-1000|init_string|init_string|-1000";
constexpr const char* FailedRead =
    "2147483647|error_string|2147483647|2147483647|error_string|error_string|2147483647";

class WifiTest : public test::MachineTest {
protected:
    /// All fields, each through its export, in this order.
    static std::string Fields() {
        std::string fields = std::to_string(RF_WiFiIsConnected());
        fields += '|' + Text(RF_WiFiCardName);
        fields += '|' + std::to_string(RF_WiFiRssi());
        fields += '|' + std::to_string(RF_WiFiChannel());
        fields += '|' + RF_PhyMode();
        fields += '|' + Text(RF_AP_MAC);
        fields += '|' + std::to_string(RF_WiFiMaxRate());
        return fields;
    }

    /// The fields on a machine whose one interface is connected to a network at 02:00:00:00:00:01.
    std::string FieldsOf(const std::string& accessPoints, const std::string& ssid = "Net",
                         const std::string& phy = R"("phy": "ht")") {
        StartMachine(R"({"wifi": {"interfaces": [{"description": "Card", "state": "connected", "channel": 1,
            "connection": {"ssid": ")" +
                     ssid + R"(", "bssid": "02:00:00:00:00:01", )" + phy + R"(}, "access_points": [)" +
                     accessPoints + "]}]}}");
        ForgetRecords();
        return Fields();
    }
};

TEST_F(WifiTest, ReadsTheLinkOnceAndInOrder) {
    EXPECT_EQ(Fields(), WholeLink);
    EXPECT_THAT(DebugLines(),
                ElementsAre("[RF] RF_WiFiIsConnected FLAG FALSE", ReadStarts, Interface, ReadEnds));
    EXPECT_THAT(Calls(),
                ElementsAre("WlanOpenHandle version=2 -> 0 client=wlan#1",
                            StartsWith("WlanEnumInterfaces client=wlan#1 -> 0 interfaces=[{guid={5e1b8c0f-"),
                            "StringFromGUID2 guid={5e1b8c0f-3d2a-4b71-9c44-7a60d1f2e385} text=39 -> 39 "
                            "text=\"{5E1B8C0F-3D2A-4B71-9C44-7A60D1F2E385}\"",
                            HasSubstr(" opcode=7 -> 0 connection={ssid="),
                            HasSubstr(" opcode=8 -> 0 number="),
                            HasSubstr(" type=1 security=true -> 0 entries=[{ssid="),
                            "WlanCloseHandle client=wlan#1"));
    StartMachine(R"({"wifi": {"service": "stopped"}})");
    EXPECT_EQ(RF_WiFiRssi(), -52); // what changes later is not seen
    EXPECT_THAT(Calls(), IsEmpty());
}

TEST_F(WifiTest, AnswersForEveryKindOfMachine) {
    const std::pair<const char*, const char*> machines[] = {
        {"radios-none", NotRead},
        {"radios-two", "0|USB wireless stick|-67|6|802.11n|06:00:10|135"},
        {"wifi-open", "1|Norvik Wireless AX 210|-44|11|ERP|0A:11:22|0"},
        {"wifi-ht", "1|Norvik Wireless AX 210|-44|44|802.11n|0A:11:22|300"},
        {"wifi-vht160", "1|Norvik Wireless AX 210|-44|36|802.11ac|0A:11:22|0"},
        {"wifi-he", "1|Norvik Wireless AX 210|-44|36|802.11ax|0A:11:22|1170"}};
    for (const auto& [name, fields] : machines) {
        StartBuiltIn(name);
        ForgetRecords();
        EXPECT_EQ(Fields(), fields) << name;
        EXPECT_EQ(sondrel::WiFiSnapshot.valid, 1);
    }
    const std::string longest(256, 'x');
    StartMachine(R"({"wifi": {"interfaces": [{"description": ")" + longest + R"("}]}})");
    ForgetRecords();
    EXPECT_EQ(Text(RF_WiFiCardName), longest);
}

TEST_F(WifiTest, EachExportNamesItselfAndTriesAgainWhileReadsFail) {
    StartMachine(R"({"wifi": {"service": "stopped"}})");
    EXPECT_EQ(Fields(), FailedRead);
    Lines expected;
    for (const char* name : {"RF_WiFiIsConnected", "RF_WiFiCardName", "RF_WiFiRssi", "RF_WiFiChannel",
                             "RF_PhyMode", "RF_AP_MAC", "RF_WiFiMaxRate"}) {
        expected.insert(expected.end(), {"[RF] " + std::string(name) + " FLAG FALSE", ReadStarts,
                                         "WlanOpenHandle failed with error:1062"});
    }
    EXPECT_EQ(DebugLines(), expected);
    // A successful read without a value for a field leaves what the failed one wrote.
    StartMachine(R"({"wifi": {"interfaces": [{"description": "Card", "state": "disconnected"}]}})");
    EXPECT_EQ(Fields(), "0|Card|2147483647|2147483647|error_string|error_string|2147483647");
}

TEST_F(WifiTest, EachFailingCallHasItsOutcomeAndItsLines) {
    struct Case {
        Operation call;
        std::size_t nth;
        Failure kind;
        const char* line;   // empty: none
        const char* fields; // null: the read failed
    };

    const char* const noChannel = "1|Farrow WF-7 Wireless LAN|-52|-1000|802.11ac|02:1A:2B|867";
    const char* const noPoint = "1|Farrow WF-7 Wireless LAN|-1000|36|802.11ac|02:1A:2B|-1000";
    const char* const noGuid = "[DLL][Wrieless]StringFromGUID2 failed";
    const Case cases[] = {
        {Operation::WlanOpenHandle, 1, Failure::Refused, "WlanOpenHandle failed with error:1062", nullptr},
        {Operation::WlanEnumInterfaces, 1, Failure::Refused, "WlanEnumInterfaces failed with error:5",
         nullptr},
        {Operation::WlanEnumInterfaces, 1, Failure::Nothing, "", NotRead},
        {Operation::StringFromGUID2, 1, Failure::Refused, noGuid, WholeLink},
        {Operation::WlanQueryInterface, 1, Failure::Refused, Interface, nullptr},
        {Operation::WlanQueryInterface, 1, Failure::Nothing, Interface, nullptr},
        {Operation::WlanQueryInterface, 2, Failure::Refused, Interface, noChannel},
        {Operation::WlanQueryInterface, 2, Failure::Nothing, Interface, noChannel},
        {Operation::WlanGetNetworkBssList, 1, Failure::Refused, Interface, nullptr},
        {Operation::WlanGetNetworkBssList, 1, Failure::Nothing, Interface, noPoint},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(observer::RowOf(each.call).name);
        RunFailing(each.call, each.nth, each.kind, [] {
            ForgetRecords();
            RF_WiFiRssi();
        });
        Lines lines{"[RF] RF_WiFiRssi FLAG FALSE", ReadStarts, each.line, ReadEnds};
        if (each.fields == nullptr) {
            lines.pop_back(); // a read that fails has no end
        }
        std::erase(lines, "");
        EXPECT_EQ(DebugLines(), lines);
        EXPECT_EQ(Fields(), each.fields != nullptr ? each.fields : WholeLink)
            << "a failed read is made again";
    }
}

TEST_F(WifiTest, MatchesAnAccessPointByBothItsNames) {
    const auto point = [](const std::string& ssid, const std::string& lastOctet, int dbm) {
        return R"({"ssid": ")" + ssid + R"(", "bssid": "02:00:00:00:00:)" + lastOctet + R"(", "rssi": )" +
               std::to_string(dbm) + "}";
    };
    const std::string longest = "A name of thirty-two characters.";
    const std::string none = "1|Card|-1000|1|802.11n|02:00:00|-1000";
    const auto found = [](int dbm) {
        return "1|Card|" + std::to_string(dbm) + "|1|802.11n|02:00:00|0";
    };
    EXPECT_EQ(FieldsOf(""), none);
    EXPECT_EQ(FieldsOf(point("Net", "02", -10) + "," + point("Other", "01", -20)), none);
    EXPECT_EQ(FieldsOf(point("Ne", "01", -10) + "," + point("Nets", "01", -20)), none);
    EXPECT_EQ(
        FieldsOf(point("Net", "02", -10) + "," + point("Net", "01", -30) + "," + point("Net", "01", -40)),
        found(-30));                                                     // the first match
    EXPECT_EQ(FieldsOf(point(longest, "01", -50), longest), found(-50)); // fills its field, no terminator
    EXPECT_EQ(FieldsOf(point("Net\\u0000one", "01", -55), "Net\\u0000two"), found(-55));
    EXPECT_EQ(FieldsOf(point("", "01", -60), ""), found(-60)); // a hidden name
}

TEST_F(WifiTest, NamesEveryPhyType) {
    const char* const names[] = {"Other", "FHSS",    "DHSS",     "IR baseband", "OFDM",     "HRDSSS",
                                 "ERP",   "802.11n", "802.11ac", "802.11ad",    "802.11ax", "Other"};
    for (std::size_t phy = 0; phy < std::size(names); ++phy) {
        FieldsOf("", "Net", R"("phy_number": )" + std::to_string(phy));
        EXPECT_EQ(RF_PhyMode(), names[phy]) << phy;
    }
}

TEST_F(WifiTest, ThreadsThatCallAtTheSameTimeShareOneRead) {
    std::vector<std::string> answers(8);
    std::vector<std::jthread> threads;
    for (std::string& answer : answers) {
        threads.emplace_back([&answer] { answer = Fields(); });
    }
    threads.clear();
    EXPECT_THAT(answers, Each(WholeLink));
    EXPECT_THAT(CallsOf(Operation::WlanOpenHandle), SizeIs(1));
}

} // namespace
