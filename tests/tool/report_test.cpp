// sondrel report.
#include "tool_run.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <map>

namespace {

using nlohmann::json;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class ReportTest : public test::ToolTest {
protected:
    /// The objects of a JSON report by name. All of them have to be there.
    static std::map<std::string, json> Exports(const test::Outcome& run) {
        std::map<std::string, json> exports;
        EXPECT_EQ(run.status, 0) << run.err;
        const json report = json::parse(run.out, nullptr, false);
        if (report.is_discarded()) {
            ADD_FAILURE() << run.out;
            return exports;
        }
        for (const auto& [name, object] : report.at("readings").items()) {
            exports[name] = object;
        }
        EXPECT_EQ(exports.size(), 114u);
        return exports;
    }
};

TEST_F(ReportTest, PrintsEveryExportAsJson) {
    const test::Outcome run = WithDouble({"report", "--json"}, {"DOUBLE_RATIO=nan"});
    auto exports = Exports(run);
    const auto expect = [&](const char* name, const char* status, const json& value) {
        EXPECT_EQ(exports[name]["status"], status) << name;
        EXPECT_EQ(exports[name]["value"], exports[name].contains("returned") ? json() : value) << name;
        EXPECT_EQ(exports[name].value("returned", value), value) << name;
    };
    expect("InitializeSondrel", "ok", 1);
    expect("Thermal_Read_Cpu_Temperature", "ok", 52);
    EXPECT_EQ(exports["Thermal_Read_Cpu_Temperature"]["unit"], "°C");
    EXPECT_EQ(exports["Thermal_Read_Cpu_Temperature"]["family"], "Temperatures and fans");
    expect("Thermal_Read_ACFET_Temperature", "absent", 0);
    expect("Thermal_Read_UpCpu_Temperature", "failed", 2147483647);
    expect("Thermal_Read_Fan", "failed", {nullptr, nullptr, nullptr, nullptr});
    expect("Battery_Read_CellVoltage", "partly failed", {4150, nullptr, 0, 0});
    EXPECT_EQ(exports["Battery_Read_CellVoltage"]["converted"],
              json::parse(R"({"value": [4.15, null, null, null], "unit": "V", "assumed_unit": "mV"})"));
    expect("Battery_Read_ManufactureName", "faulty", "A name of m");
    expect("Battery_Read_ASOC", "ok", "nan");
    expect("CPU_ReadCPUUsage", "ok", 0.1 + 0.2);
    expect("CPU_ReadCpuId", "ok", "0000000d 756e6547 6c65746e 49656e69");
    expect("RF_WiFiChannel", "not read yet", -1000);
    expect("RF_BTConnectedType", "ok", {"Phone", "\uFFFD"});
    expect("GetSENSOR_WMI_Data", "ok", {{"p_sensor", "0x10001"}});
    expect("GetEEPROM_Data", "ok", "{\"version\":\"say \"so\"\u0007\"}");
    expect("AppList_OpenWindows", "ok", "Ä€\U0001F600\uFFFD");
    expect("GetUWPVersion", "absent", nullptr);
    expect("GPNV_Get_ManufacturedTime", "failed", nullptr);
    expect("wmiadd", "ok", 2);
    expect("RF_WiFiMaxRate", "not exported", nullptr);
    expect("WMISetQuietFan", "not run", nullptr);
    EXPECT_EQ(run.err, "open\nclose\n"); // no setter was called
}

TEST_F(ReportTest, ContinuesWithoutASession) {
    test::Outcome run = WithDouble({"report", "--json"}, {"DOUBLE_REFUSES=1"});
    EXPECT_THAT(run.err,
                AllOf(HasSubstr("sondrel: the driver session could not be opened"), Not(HasSubstr("close"))));
    auto exports = Exports(run);
    EXPECT_EQ(exports["InitializeSondrel"]["status"], "failed");
    EXPECT_EQ(exports["WMIGetSN"]["value"], json::array({"in COM"}));
    run = WithDouble({"report", "--json", "--no-session"});
    EXPECT_THAT(run.err, IsEmpty());
    EXPECT_EQ(Exports(run)["InitializeSondrel"]["status"], "not run");
}

TEST_F(ReportTest, DistinguishesFailuresFromZeros) {
    const test::Outcome run = WithDouble({"report"}, {"DOUBLE_RATIO=0.35"});
    EXPECT_EQ(run.status, 0);
    for (const char* const text :
         {"\nTemperatures and fans\n  Thermal_Read_Cpu_Temperature               52 °C\n",
          "no such reading on this machine, or the sensor is not ready (0)\n",
          "Thermal_Read_UpCpu_Temperature             failed (2147483647): an EC command failed",
          "4150, failed, 0, 0 raw (4.15, -, -, - V)\n", "Battery_Read_ASOC                          35.0 %\n",
          "756e6547 6c65746e 49656e69 (GenuineIntel)\n", "not read yet (-1000)",
          "Power_Read_ACDCMode                        failed (255): the system does not know\n",
          "{\"p_sensor\": \"0x10001\"}\n", "(not well-formed JSON)\n",
          "faulty (A name of m): the buffer of 11 bytes",
          "the assistant package is not installed (buffer untouched)\n",
          "8589934592, 8589934592 bytes (8.6, 8.6 GB)\n", "(2026-01-02 03:04:05)\n",
          " more lines: sondrel call GetApplist_x64\n",
          "\nnot run by a report: ShutdownSondrel, GPNV_Set_ActivatedTime, "}) {
        EXPECT_THAT(run.out, HasSubstr(text));
    }
    EXPECT_TRUE(run.out.ends_with(" names\n")) << "not exported by this library: N names";
    // No control character of a reading reaches the terminal, and no reading breaks a line.
    EXPECT_TRUE(
        std::ranges::none_of(run.out, [](char byte) { return byte >= 0 && byte < ' ' && byte != '\n'; }));
    EXPECT_LT(run.out.size(), 20'000u);
}

} // namespace
