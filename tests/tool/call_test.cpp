// sondrel call and list: each kind of export against the double, and the errors.
#include "tool_run.h"

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class CallTest : public test::ToolTest {};

TEST_F(CallTest, PrintsTheResultAndExplainsFailures) {
    struct Case {
        std::vector<std::string> arguments;
        const char* out;
        const char* explanation = "";
    };

    const char* const untouched = "(buffer untouched)";
    const Case cases[] = {
        {{"EC_ReadEcChipId"}, "4294967295"},
        {{"RF_WiFiRssi"}, "-57"},
        {{"Battery_Read_ASOC"}, "0.35"},
        {{"CPU_ReadCPUUsage"}, "0.30000000000000004"},
        {{"WMIGetQuietFan"}, "1"},
        {{"WMIGetQuietFan", "--init-com", "0"}, "0"},
        {{"wmiadd", "4294967295"}, "0"},
        {{"wmiadd", "0x10"}, "17"},

        {{"Battery_Read_CellVoltage"}, "4150;2147483647;0;0", "partly failed"},
        {{"RF_AP_MAC"}, ""},
        {{"WMIGetSN"}, "in COM"},
        {{"WMIGetSN", "--init-com", "0"}, "as it is"},
        {{"AppList_OpenWindows"}, "Ä€\U0001F600\uFFFD"},
        {{"RF_PhyMode"}, "802.11ax, in more characters than fit into a string without heap memory"},
        {{"RF_BTConnectedType"}, "Phone;\uFFFD;"},

        {{"GPNV_Get_RandomUUID"}, "f0f1f2f3f4f5f6f7f8f9fafbfcfdfeff"},
        {{"CPU_ReadCpuId", "0"}, "0000000d 756e6547 6c65746e 49656e69"},

        {{"GetUWPVersion"}, untouched, "absent: the assistant package is not installed"},
        {{"System_Read_LocalTime"}, untouched, "untouched"},
        {{"GetInfVersion"}, "", "absent: the driver package is not installed"},
        {{"GPNV_Get_ManufacturedTime"}, untouched, "failed: system error 203"},
        {{"CPU_ReadCpuId", "1"}, untouched, "failed: no session is open"},

        {{"WMISetBatteryHealth", "-80"}, "1"},
        {{"WMISetBatteryHealth", "80"}, "0", "failed: the firmware did not accept the value"},
        {{"WMISetQuietFan", "0xff"}, "1"},
        {{"WMISetAppPath", "C:\\Ä \U0001F600"}, "1"},
        {{"GPNV_Set_ActivatedTime", "text:2026-01-02 03:04:05"}, "0"},
        {{"GPNV_Set_ActivatedTime", "32:30:32:36-2d30312d30322030333a30343a3035"}, "0"},
        {{"GPNV_Set_ActivatedTime", std::string(38, '0')}, "1314", "failed"},
    };
    for (const auto& [arguments, out, explanation] : cases) {
        SCOPED_TRACE(::testing::PrintToString(arguments));
        std::vector<std::string> line{"call"};
        line.insert(line.end(), arguments.begin(), arguments.end());
        const test::Outcome run = WithDouble(line, {"DOUBLE_RATIO=0.35"});
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.out, out + std::string("\n"));
        EXPECT_THAT(run.err, HasSubstr(explanation));
        EXPECT_EQ(run.err.find("sondrel:") == std::string::npos, *explanation == '\0') << run.err;
    }
}

TEST_F(CallTest, PrintsADocumentOfManyMegabytes) {
    const test::Outcome run = WithDouble({"call", "GetApplist_x64"});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out, StartsWith("[{\"machine\":[{\"name\":\"An application\",\"version\":\"1.2\"},"));
    EXPECT_TRUE(run.out.ends_with("]},{\"user\":[]}]\n"));
    EXPECT_GT(run.out.size(), 4'000'000u);
}

TEST_F(CallTest, ReportsALibraryThatWritesOutsideItsBuffer) {
    test::Outcome run = WithDouble({"call", "Battery_Read_ManufactureName"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "A name of m\n");
    EXPECT_THAT(run.err, HasSubstr("the buffer of 11 bytes was overrun: 35 bytes were written"));
    run = WithDouble({"call", "Battery_Read_ManufactureDate"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr("no terminator within its 11 bytes"));
    run = WithDouble({"call", "GPNV_Get_RandomUUID"}, {"DOUBLE_OVERRUNS=1"}); // by one byte
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr("the buffer of 16 bytes was overrun: 17 bytes were written"));
}

TEST_F(CallTest, OpensAndClosesASessionWhereOneIsNeeded) {
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

TEST_F(CallTest, ReportsErrorsInOneLine) {
    struct Case {
        std::vector<std::string> line;
        const char* reason;
    };

    EXPECT_EQ(Tool({"call", "wmiadd", "1", "--machine", "ab", "--store", Path("of ab.sqlite")}).status, 0);
    const Case ofTheLibrary[] = {
        {{}, "a command is needed"},
        {{"draw"}, "there is no command \"draw\""},
        {{"reprot"}, "there is no command \"reprot\"; did you mean report? (sondrel --help)"},
        {{"machine", "shwo"}, "there is no command \"shwo\"; did you mean show? (sondrel machine --help)"},
        {{"report", "--colour", "red"}, "takes auto, always or never, not \"red\""},
        {{"list", "--fast"}, "--fast"},
        {{"call"}, "EXPORT is required (sondrel call --help)"},
        {{"report", "--init-com", "2"}, "takes 0 or 1"},
        {{"list", "--library"}, "--library"},
        {{"list", "--library", Path("none.so")}, "there is no library"},
        {{"report", "--library", Write("text.so", "no library")}, "cannot load the library"},
        {{"call", "Thermal_Read_fan"}, "did you mean Thermal_Read_Fan?"},
        {{"call", "FullCharged"}, "did you mean Battery_Read_FullChargedCapcity?"},
        {{"call", "\x1b[31mzzzzzzzz"}, "no export \"\\x1b[31mzzzzzzzz\"; sondrel list"},
        {{"list", "nothing like it"}, "no export"},
        {{"call", "EC_ReadEcFwRev", "1"}, "EC_ReadEcFwRev takes no argument, not 1"},
        {{"report", "--samples", "3"}, "--html"},
        {{"report", "--html", Path("")}, "is a directory"},
        {{"report", "--machine", "nowhere"}, "nowhere"},
        {{"report", "--machine", Write("worse.json", "{")}, "worse.json"},
        {{"report", "--machine", "gl", "--store", Path("of ab.sqlite")},
         "it is the store of the machine \"ab\""},
        {{"report", "--store", Write("damaged.sqlite", std::string(5000, 'x'))}, "damaged.sqlite"},
    };
    for (const auto& [line, reason] : ofTheLibrary) {
        ExpectRefused(Tool(line), reason);
    }
    const Case ofTheDouble[] = {
        {{"call", "wmiadd"}, "takes one argument: VALUE, not 0"},
        {{"call", "wmiadd", "1", "2"}, "takes one argument: VALUE, not 2"},
        {{"call", "WMISetQuietFan", "256"}, "takes a number from 0 to 255"},
        {{"call", "RF_WiFiMaxRate"}, "this library does not export RF_WiFiMaxRate"},
        {{"report", "--machine", "default"}, "--machine is for the simulated machine"},
        {{"report", "--store", ":memory:"}, "--store is for the simulated machine"},
        {{"report", "--trace"}, "--trace shows the lines of a simulated machine"},
        {{"watch", "WMISetQuietFan"}, "WMISetQuietFan changes something"},
        {{"watch", "RF_WiFiMaxRate"}, "does not export"},
        {{"watch", "Thermal_Read_Fans"}, "did you mean Thermal_Read_Fan?"},
        {{"watch", "--interval", "0"}, "--interval"},
        {{"watch", "--count", "0"}, "--count"},
        {{"watch", "--csv", Path("no/directory.csv")}, "cannot be written"},
        {{"metrics", "--output", Path("nowhere/a.prom")}, "nowhere/a.prom"},
    };
    for (const auto& [line, reason] : ofTheDouble) {
        ExpectRefused(WithDouble(line), reason);
    }
    for (const char* const number :
         {"4294967296", "-1", "1.5", "", "0x", "0x-1", "ten", "99999999999999999999"}) {
        ExpectRefused(WithDouble({"call", "wmiadd", number}), "takes a number from 0 to 4294967295");
    }
    for (const char* const bytes : {"00", "zz", "text:short", ""}) {
        ExpectRefused(WithDouble({"call", "GPNV_Set_ActivatedTime", bytes}), "takes exactly 19 bytes");
    }
}

TEST_F(CallTest, DescribesAnExport) {
    const test::Outcome row = WithDouble({"list", "Thermal_Read_ACFET_Temperature"});
    EXPECT_EQ(row.status, 0);
    EXPECT_THAT(row.out, AllOf(HasSubstr("uint32_t Thermal_Read_ACFET_Temperature(void)"),
                               HasSubstr("2147483647"), HasSubstr("needed")));
}

} // namespace
