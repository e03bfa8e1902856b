// sondrel call and list: each kind of export against the double, and the errors.
#include "tool_run.h"

#include <algorithm>

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class CallTest : public test::ToolTest {
protected:
    void ExpectResult(const std::vector<std::string>& arguments, const std::string& out,
                      const std::string& told = "") const {
        std::vector<std::string> line{"call"};
        line.insert(line.end(), arguments.begin(), arguments.end());
        const test::Outcome run = WithDouble(line, {"DOUBLE_RATIO=0.35"});
        EXPECT_EQ(run.status, 0) << arguments.front() << ": " << run.err;
        EXPECT_EQ(run.out, out) << arguments.front();
        EXPECT_THAT(run.err, HasSubstr(told)) << arguments.front();
        EXPECT_EQ(run.err.find("sondrel:") == std::string::npos, told.empty()) << run.err;
    }

    void ExpectTrouble(const test::Outcome& run, const std::string& problem) const {
        EXPECT_EQ(run.status, 2) << problem;
        EXPECT_THAT(run.out, IsEmpty());
        EXPECT_THAT(run.err, AllOf(StartsWith("sondrel: "), HasSubstr(problem)));
        EXPECT_EQ(std::ranges::count(run.err, '\n'), 1) << run.err;
    }
};

TEST_F(CallTest, PrintsNumbersInDecimal) {
    ExpectResult({"EC_ReadEcChipId"}, "4294967295\n");
    ExpectResult({"RF_WiFiRssi"}, "-57\n");
    ExpectResult({"Battery_Read_ASOC"}, "0.35\n");
    ExpectResult({"CPU_ReadCPUUsage"}, "0.30000000000000004\n");
    ExpectResult({"WMIGetQuietFan"}, "1\n");
    ExpectResult({"WMIGetQuietFan", "--init-com", "0"}, "0\n");
    ExpectResult({"wmiadd", "4294967295"}, "0\n");
    ExpectResult({"wmiadd", "0x10"}, "17\n");
}

TEST_F(CallTest, PrintsTextsInUtf8) {
    ExpectResult({"Battery_Read_CellVoltage"}, "4150;2147483647;0;0\n", "partly failed");
    ExpectResult({"RF_AP_MAC"}, "\n");
    ExpectResult({"WMIGetSN"}, "in COM\n");
    ExpectResult({"WMIGetSN", "--init-com", "0"}, "as it is\n");
    ExpectResult({"AppList_OpenWindows"}, "Ä€\U0001F600\uFFFD\n");
    ExpectResult({"RF_PhyMode"},
                 "802.11ax, told in more characters than fit into a string without memory of its own\n");
    ExpectResult({"RF_BTConnectedType"}, "Phone;\uFFFD;\n");
}

TEST_F(CallTest, PrintsADocumentOfManyMegabytes) {
    const test::Outcome run = WithDouble({"call", "GetApplist_x64"});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out, StartsWith("[{\"machine\":[{\"name\":\"An application\",\"version\":\"1.2\"},"));
    EXPECT_TRUE(run.out.ends_with("]},{\"user\":[]}]\n"));
    EXPECT_GT(run.out.size(), 4'000'000u);
}

TEST_F(CallTest, PrintsBytesAndWordsInHexadecimal) {
    ExpectResult({"GPNV_Get_RandomUUID"}, "f0f1f2f3f4f5f6f7f8f9fafbfcfdfeff\n");
    ExpectResult({"CPU_ReadCpuId", "0"}, "0000000d 756e6547 6c65746e 49656e69\n");
}

TEST_F(CallTest, TellsAnUntouchedBufferFromAnEmptyText) {
    ExpectResult({"GetUWPVersion"}, "(buffer untouched)\n", "absent: the assistant package is not installed");
    ExpectResult({"System_Read_LocalTime"}, "(buffer untouched)\n", "untouched");
    ExpectResult({"GetInfVersion"}, "\n", "absent: the driver package is not installed");
    ExpectResult({"GPNV_Get_ManufacturedTime"}, "(buffer untouched)\n", "failed: system error 203");
    ExpectResult({"CPU_ReadCpuId", "1"}, "(buffer untouched)\n", "failed: no session is open");
}

TEST_F(CallTest, GivesSettersTheirArguments) {
    ExpectResult({"WMISetBatteryHealth", "-80"}, "1\n");
    ExpectResult({"WMISetBatteryHealth", "80"}, "0\n", "failed: the firmware did not take it");
    ExpectResult({"WMISetQuietFan", "0xff"}, "1\n");
    ExpectResult({"WMISetAppPath", "C:\\Ä \U0001F600"}, "1\n");
    ExpectResult({"GPNV_Set_ActivatedTime", "text:2026-01-02 03:04:05"}, "0\n");
    ExpectResult({"GPNV_Set_ActivatedTime", "32:30:32:36-2d30312d30322030333a30343a3035"}, "0\n");
    ExpectResult({"GPNV_Set_ActivatedTime", std::string(38, '0')}, "1314\n", "failed");
}

TEST_F(CallTest, ReportsALibraryThatWritesOutsideItsBuffer) {
    test::Outcome run = WithDouble({"call", "Battery_Read_ManufactureName"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "A name of m\n");
    EXPECT_THAT(run.err, HasSubstr("the buffer of 11 bytes was overrun: 35 bytes were written"));
    run = WithDouble({"call", "Battery_Read_ManufactureDate"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr("no terminator within its 11 bytes"));
}

TEST_F(CallTest, OpensASessionForWhatNeedsOneAndGivesItBack) {
    EXPECT_EQ(WithDouble({"call", "EC_ReadEcChipId"}).err, "open\nclose\n");
    EXPECT_EQ(WithDouble({"call", "EC_ReadEcChipId", "--no-session"}).err, "");
    EXPECT_EQ(WithDouble({"call", "WMIGetSN"}).err, "");
    EXPECT_EQ(WithDouble({"call", "InitializeSondrel"}).err, "open\nclose\n");
    EXPECT_EQ(WithDouble({"call", "ShutdownSondrel"}).err, "close\n");
    const test::Outcome refused = WithDouble({"call", "EC_ReadEcChipId"}, {"DOUBLE_REFUSES=1"});
    EXPECT_EQ(refused.status, 0);
    EXPECT_EQ(refused.out, "4294967295\n");
    EXPECT_THAT(refused.err, AllOf(HasSubstr("session could not be opened"), Not(HasSubstr("close"))));
}

TEST_F(CallTest, RefusesWrongNamesAndArguments) {
    ExpectTrouble(Tool({"call", "Thermal_Read_fan"}), "did you mean Thermal_Read_Fan?");
    ExpectTrouble(Tool({"call", "FullCharged"}), "did you mean Battery_Read_FullChargedCapcity?");
    ExpectTrouble(Tool({"call", "\x1b[31mzzzzzzzz"}), "no export \"\\x1b[31mzzzzzzzz\"; sondrel list");
    ExpectTrouble(Tool({"list", "nothing like it"}), "no export");
    ExpectTrouble(Tool({"call", "EC_ReadEcFwRev", "1"}), "EC_ReadEcFwRev takes no argument, not 1");
    ExpectTrouble(WithDouble({"call", "wmiadd"}), "takes one argument: VALUE, not 0");
    ExpectTrouble(WithDouble({"call", "wmiadd", "1", "2"}), "takes one argument: VALUE, not 2");
    for (const char* const number :
         {"4294967296", "-1", "1.5", "", "0x", "0x-1", "ten", "99999999999999999999"}) {
        ExpectTrouble(WithDouble({"call", "wmiadd", number}), "takes a number from 0 to 4294967295");
    }
    ExpectTrouble(WithDouble({"call", "WMISetQuietFan", "256"}), "takes a number from 0 to 255");
    for (const char* const bytes : {"00", "zz", "text:short", ""}) {
        ExpectTrouble(WithDouble({"call", "GPNV_Set_ActivatedTime", bytes}), "takes exactly 19 bytes");
    }
    ExpectTrouble(WithDouble({"call", "RF_WiFiMaxRate"}), "this library does not export RF_WiFiMaxRate");
}

TEST_F(CallTest, RefusesAWrongCommandLine) {
    ExpectTrouble(Tool({}), "a command is needed");
    ExpectTrouble(Tool({"draw"}), "--help");
    ExpectTrouble(Tool({"list", "--fast"}), "--fast");
    ExpectTrouble(Tool({"call"}), "NAME is required");
    ExpectTrouble(Tool({"report", "--init-com", "2"}), "takes 0 or 1");
    ExpectTrouble(Tool({"list", "--library"}), "--library");
}

TEST_F(CallTest, RefusesALibraryThatCannotBeLoaded) {
    ExpectTrouble(Tool({"list", "--library", Path("none.so")}), "there is no library");
    ExpectTrouble(Tool({"report", "--library", Write("text.so", "no library")}), "cannot load the library");
}

TEST_F(CallTest, RefusesMachineOptionsForALibraryWithoutASimulatedMachine) {
    ExpectTrouble(WithDouble({"report", "--machine", "default"}), "--machine is for the simulated machine");
    ExpectTrouble(WithDouble({"report", "--store", ":memory:"}), "--store is for the simulated machine");
    ExpectTrouble(WithDouble({"report", "--trace"}), "--trace shows the lines of a simulated machine");
}

TEST_F(CallTest, HelpsANewcomer) {
    const test::Outcome help = Tool({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_THAT(help.out,
                AllOf(HasSubstr("list"), HasSubstr("call"), HasSubstr("report"), HasSubstr("Examples:")));
    EXPECT_THAT(Tool({"--version"}).out, StartsWith("sondrel 1."));
    const test::Outcome row = WithDouble({"list", "Thermal_Read_ACFET_Temperature"});
    EXPECT_EQ(row.status, 0);
    EXPECT_THAT(row.out, AllOf(HasSubstr("uint32_t Thermal_Read_ACFET_Temperature(void)"),
                               HasSubstr("2147483647"), HasSubstr("needed")));
}

} // namespace
