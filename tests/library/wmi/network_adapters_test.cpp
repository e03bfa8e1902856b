#include "machine_fixture.h"

namespace {

using namespace testing;

class NetworkAdaptersTest : public test::MachineTest {
protected:
    /// Starts a machine with these adapters, in JSON; WMI knows number 5 as A, 6 as B, and 9 with an empty name.
    void StartAdapters(const std::string& adapters, const std::string& arriving = "") {
        StartMachine(R"({"network": {"adapters": [)" + adapters + R"(], "arriving": [)" + arriving + R"(]},
            "wmi": {"ROOT\\CIMV2": {"Win32_NetworkAdapter": [
                {"InterfaceIndex": 5, "PhysicalAdapter": true, "Name": "A"},
                {"InterfaceIndex": 6, "PhysicalAdapter": true, "Name": "B"},
                {"InterfaceIndex": 7, "PhysicalAdapter": false, "Name": "Virtual"},
                {"InterfaceIndex": 9, "PhysicalAdapter": true, "Name": ""}]}}})");
    }

    static std::string Wireless(int index) {
        return R"({"index": )" + std::to_string(index) + R"(, "type": "wireless"})";
    }

    /// Starts a machine with a card of this name and these counters in JSON, and gives the traffic.
    std::string TrafficOf(const std::string& cardName, const std::string& counters) {
        StartMachine(R"({"wifi": {"interfaces": [{"description": ")" + cardName +
                     R"("}]}, "wmi": {"ROOT\\CIMV2": {"Win32_PerfFormattedData_Tcpip_NetworkInterface": [)" +
                     counters + "]}}}");
        ForgetRecords();
        return Text(WMIGetWiFiBytesPersec);
    }

    static std::string Counter(const std::string& name, const std::string& received,
                               const std::string& sent) {
        return R"({"Name": ")" + name + R"(", "BytesReceivedPersec": ")" + received +
               R"(", "BytesSentPersec": ")" + sent + R"("})";
    }
};

TEST_F(NetworkAdaptersTest, NamesTheWirelessAdaptersInTheOrderOfTheList) {
    EXPECT_EQ(Text(WMIGetWiFiCardName), "Farrow WF-7 Wireless LAN;");
    StartAdapters(Wireless(6) + R"(, {"index": 4, "type": "ethernet"}, )" + Wireless(5));
    EXPECT_EQ(Text(WMIGetWiFiCardName), "B;A;");
    EXPECT_THAT(
        CallsOf(Operation::GetAdaptersInfo),
        ElementsAre("GetAdaptersInfo size=704 -> 111 size=2112 adapters=[]",
                    StartsWith("GetAdaptersInfo size=2112 -> 0 size=2112 adapters=[{index=6 type=71}, ")));
    EXPECT_THAT(CallsOf(Operation::ExecQuery).front(),
                HasSubstr("select * from win32_NetworkAdapter where physicalAdapter='true' and "
                          "InterfaceIndex = 6"));
    EXPECT_THAT(CallsOf(Operation::ExecQuery), SizeIs(2));
}

TEST_F(NetworkAdaptersTest, SkipsAdaptersThatWmiDoesNotName) {
    StartAdapters(Wireless(8) + "," + Wireless(5) + "," + Wireless(7) + "," + Wireless(9));
    EXPECT_EQ(Text(WMIGetWiFiCardName), "A;");
    StartAdapters(R"({"index": 5, "type": "ethernet"})");
    EXPECT_EQ(Text(WMIGetWiFiCardName), "");
    EXPECT_THAT(CallsOf(Operation::GetAdaptersInfo),
                ElementsAre(StartsWith("GetAdaptersInfo size=704 -> 0 ")));
}

TEST_F(NetworkAdaptersTest, WithoutAListTheHostsBufferStaysAsItIs) {
    StartAdapters("");
    EXPECT_EQ(Text(WMIGetWiFiCardName), "untouched");
    StartAdapters(Wireless(5) + "," + Wireless(6),
                  Wireless(5) + "," + Wireless(5)); // grows between the calls
    EXPECT_EQ(Text(WMIGetWiFiCardName), "untouched");
    EXPECT_THAT(CallsOf(Operation::GetAdaptersInfo),
                ElementsAre("GetAdaptersInfo size=704 -> 111 size=1408 adapters=[]",
                            "GetAdaptersInfo size=1408 -> 111 size=2112 adapters=[]"));
    EXPECT_EQ(Text(WMIGetWiFiCardName), "A;B;A;A;"); // it has come to rest by now
    StartAdapters(Wireless(5));
    // A WMI that fails is another matter: no adapter has a name then.
    FailCalls({.nth = 2, .andLater = true});
    EXPECT_EQ(Text(WMIGetWiFiCardName), "");
}

TEST_F(NetworkAdaptersTest, TrafficIsThatOfAllCountersWithANameAsLongAsTheCards) {
    const std::string six = Counter("Card A", "1200", "34");
    EXPECT_EQ(TrafficOf("Card A", six + "," + Counter("Ethernet", "9", "9")), "1200;34");
    EXPECT_THAT(DebugLines(), IsSupersetOf({"WMIGetWiFiBytesPersec Start", "[RF] RF_WiFiCardName FLAG FALSE",
                                            "WMIGetWiFiBytesPersec End"}));
    EXPECT_EQ(TrafficOf("Other1", six), "1200;34"); // the letters do not count
    EXPECT_EQ(TrafficOf("Card A", six + "," + Counter("Card B", "0", "77")), "1200;77");
    EXPECT_EQ(TrafficOf("Card A", Counter("Card A", "0", "5")), "0;5");
    EXPECT_EQ(TrafficOf("Longer card", six), "0;0");
    EXPECT_EQ(TrafficOf("Card A", ""), "");
}

TEST_F(NetworkAdaptersTest, TheWholeLengthOfTheCardsNameCounts) {
    const std::string longest(256, 'x');
    EXPECT_EQ(TrafficOf(longest, Counter(std::string(150, 'y'), "1", "2")), "0;0");
    EXPECT_EQ(TrafficOf(longest, Counter(longest, "1", "2")), "1;2");
    // Without a link the name is the failure text.
    TrafficOf("Card", Counter("twelve chars", "3", "4"));
    std::string traffic;
    RunFailing(Operation::WlanOpenHandle, 1, Failure::Refused, [&traffic] {
        ForgetRecords();
        traffic = Text(WMIGetWiFiBytesPersec);
    });
    EXPECT_EQ(traffic, "3;4");
}

} // namespace
