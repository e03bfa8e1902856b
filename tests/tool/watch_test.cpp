// sondrel watch and trace without a terminal.
#include "tool_run.h"

#include <fstream>
#include <regex>

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::Not;

class WatchTest : public test::ToolTest {
protected:
    /// Two samples of readings of every kind.
    [[nodiscard]] test::Outcome Sample(const std::string& file, std::vector<std::string> names) const {
        names.insert(names.begin(), {"watch", "--count", "2", "--interval", "0.01", "--csv", file});
        return WithDouble(names);
    }
};

TEST_F(WatchTest, PrintsPlainLinesIntoAPipe) {
    const test::Outcome run =
        WithDouble({"watch", "--count", "2", "--interval", "0.01", "Thermal_Read_Cpu_Temperature",
                    "Thermal_Read_Fan", "CPU_ReadCPUUsage", "AppList_OpenWindows"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "open\nclose\n");
    const std::string time = "[-0-9]{10}T[:0-9]{8}\\.[0-9]{3}Z  ";
    std::string sample = time + "Thermal_Read_Cpu_Temperature  52 °C\n";
    for (const char place : {'0', '1', '2', '3'}) {
        sample += time + "Thermal_Read_Fan\\[" + place + "\\]           failed\n";
    }
    sample +=
        time + "CPU_ReadCPUUsage              30.0 %\n" + time + "AppList_OpenWindows           Ä€😀\uFFFD\n";
    const std::string summary = "\n +minimum +mean +maximum +samples +failures\n"
                                "Thermal_Read_Cpu_Temperature +52 +52 +52 +2 +0  °C\n"
                                "(Thermal_Read_Fan\\[.\\] +- +- +- +0 +2  rpm\n){4}"
                                "CPU_ReadCPUUsage +30.0 +30.0 +30.0 +2 +0  %\n";
    EXPECT_TRUE(std::regex_match(run.out, std::regex(sample + sample + summary))) << run.out;
}

TEST_F(WatchTest, WritesSamplesAsCsv) {
    const std::string file = Path("samples.csv");
    const std::vector<std::string> names{"Thermal_Read_Cpu_Temperature", "Thermal_Read_ACFET_Temperature",
                                         "Battery_Read_CellVoltage", "GetEEPROM_Data", "RF_WiFiChannel"};
    EXPECT_EQ(Sample(file, names).status, 0);
    const std::string header = "time,Thermal_Read_Cpu_Temperature,Thermal_Read_ACFET_Temperature,"
                               "Battery_Read_CellVoltage\\[0\\],Battery_Read_CellVoltage\\[1\\],"
                               "Battery_Read_CellVoltage\\[2\\],Battery_Read_CellVoltage\\[3\\],"
                               "GetEEPROM_Data,RF_WiFiChannel\r\n";
    const std::string line = "[-0-9]{10}T[:0-9]{8}\\.[0-9]{3}Z,52,,4150,,,,"
                             "\"\\{\"\"version\"\":\"\"say \"\"so\"\"\\\\x07\"\"\\}\",\r\n";
    EXPECT_TRUE(std::regex_match(ContentOf(file), std::regex(header + line + line))) << ContentOf(file);

    std::ofstream(file, std::ios::app) << "2026-01-01T00:00"; // cut off by a crash
    EXPECT_EQ(Sample(file, names).status, 0);
    EXPECT_TRUE(std::regex_match(ContentOf(file), std::regex(header + line + line + line + line)));
    const std::string before = ContentOf(file);
    ExpectRefused(Sample(file, {"RF_WiFiChannel"}),
                  "contains something other than samples of these readings");
    EXPECT_EQ(ContentOf(file), before);
}

TEST_F(WatchTest, WritesOnlySamplesToStandardOutputAndReportsALateOne) {
    const test::Outcome run = Tool({"watch", "CPU_ReadCPUUsage", "--count", "2", "--interval", "0.01",
                                    "--csv", "-", "--store", ":memory:"});
    EXPECT_TRUE(
        std::regex_match(run.out, std::regex("time,CPU_ReadCPUUsage\r\n([-0-9T:.Z]{24},0\\.1\r\n){2}")))
        << run.out;
    EXPECT_THAT(run.err, HasSubstr("--interval is too short: 1 of 1 samples took longer"));
}

TEST_F(WatchTest, TracesACall) {
    const test::Outcome run = Tool({"trace", "--store", ":memory:", "EC_ReadEcChipId"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(run.out, AllOf(HasSubstr("  debug  [RwEcCmd] cmd: 0xbb DataList: 0x10 ReadData\n"),
                               HasSubstr("  EC     bb 10 -> 00\n"),
                               HasSubstr("  call   RegSetValueExW key=key#2 name=\"EcChipId\" "),
                               HasSubstr("result  0\n"), Not(HasSubstr("CreateFileW")))); // the session's
    const test::Outcome waiting = Tool({"trace", "CPU_ReadCPUUsage", "--store", ":memory:"});
    EXPECT_THAT(waiting.out, AllOf(HasSubstr("  call   Sleep milliseconds=1000\n"), HasSubstr("  1000.000 "),
                                   HasSubstr("result  10.0 %\n")));
    const test::Outcome real = Tool({"trace", "--library", DOUBLE_LIBRARY, "WMISetBatteryHealth", "-80"});
    EXPECT_EQ(real.status, 0);
    EXPECT_THAT(real.out,
                MatchesRegex("time +[0-9.]+ ms\nresult  1 \\(the firmware accepted the value\\)\n"));
    EXPECT_THAT(real.err, HasSubstr("this library is not observed"));
}

} // namespace
