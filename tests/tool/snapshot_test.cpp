// sondrel snapshot, diff and metrics.
#include "tool_run.h"

#include <nlohmann/json.hpp>

#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class ComparingTest : public test::ToolTest {
protected:
    /// A snapshot of the default machine, taken once since it takes some processor time.
    static const json& DefaultSnapshot(const ComparingTest& test) {
        static const json Snapshot =
            json::parse(test.Tool({"snapshot", "-", "--store", ":memory:"}).out, nullptr, false);
        return Snapshot;
    }

    [[nodiscard]] test::Outcome Diff(const json& before, const json& after,
                                     const std::vector<std::string>& options = {}) const {
        std::vector<std::string> line{"diff", Write("a.json", before.dump()), Write("b.json", after.dump())};
        line.insert(line.end(), options.begin(), options.end());
        return Tool(line);
    }
};

TEST_F(ComparingTest, ReportsWhatChanged) {
    struct Case {
        const char* changes; // a merge patch of the readings
        const char* line;    // of the output; null for no difference
    };

    const Case cases[] = {
        {"{}", nullptr},
        {R"({"Thermal_Read_Cpu_Temperature": {"value": 57}})", "Thermal_Read_Cpu_Temperature 53 -> 57 °C"},
        {R"({"Thermal_Read_Fan": {"value": [2913, 3100, null, 0], "status": "partly failed"}})",
         "Thermal_Read_Fan fan 1: 3071 -> 3100 rpm fan 2: 2455 -> failed rpm"},
        {R"({"Battery_Read_Capacity": {"value": 0, "status": "absent", "meaning": "no battery"}})",
         "Battery_Read_Capacity 43050 -> absent: no battery"},
        {R"({"GetDriverVersion": {"value": 66052}})", "GetDriverVersion 0x00010203 -> 0x00010204"},
        {R"({"EC_ReadEcFwRev": {"value": 18252}})", R"(EC_ReadEcFwRev "KL" -> "GL")"},
        {R"({"WMIGetMacAddress": {"value": ["02:AB:5C:14:D7:E2", "02:AB:5C:14:D7:E1"]}})", nullptr},
        {R"({"WMIGetMacAddress": {"value": ["02:AB:5C:14:D7:E1", "\u0007"]}})",
         R"(WMIGetMacAddress gone "02:AB:5C:14:D7:E2" new "\u0007")"},
        {R"({"GetApplist_x86": {"value": [{"user": [{"name": "New", "version": "1"}]},
             {"machine": [{"name": "Old Ledger", "version": "3.1"}]}]}})",
         R"(GetApplist_x86 machine / Old Ledger / version: "3.0" -> "3.1" user / New: new {"name":"New","version":"1"})"},
        {R"({"GetEEPROM_Data": {"value": {"register": ["0xabc", "0x05", "0x00", "0x12345678"]}}})",
         R"(GetEEPROM_Data register / element 0: "0x05" -> "0xabc" register / element 1: "0xabc" -> "0x05")"},
        {R"({"wmiadd": null})", "wmiadd 2 -> (not in this snapshot)"},
        {R"({"Of_A_Newer_Tool": {"status": "ok", "value": 1}})",
         "Of_A_Newer_Tool (not in this snapshot) -> 1"},
        {R"({"RF_WiFiRssi": {"unit": "dBmW"}})", R"(RF_WiFiRssi -52 -> -52 unit: "dBm" -> "dBmW")"},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.changes);
        json after = DefaultSnapshot(*this);
        ASSERT_TRUE(after.is_object());
        after["readings"].merge_patch(json::parse(each.changes));
        const test::Outcome run = Diff(DefaultSnapshot(*this), after);
        EXPECT_EQ(run.status, each.line != nullptr ? 1 : 0);
        EXPECT_THAT(run.err, IsEmpty());
        const std::string words = std::regex_replace(run.out, std::regex("\\s+"), " ");
        EXPECT_THAT(words, HasSubstr(each.line != nullptr ? each.line : " 0 of 114 readings differ"));
    }
}

TEST_F(ComparingTest, LeavesOutWhatUsuallyDiffers) {
    json after = DefaultSnapshot(*this);
    for (const char* const changing : {"Thermal_Read_Cpu_Temperature", "System_Read_LocalTime", "RF_WiFiRssi",
                                       "Battery_Read_CellVoltage", "AppList_CpuUsage"}) {
        after["readings"][changing]["value"] = "another";
    }
    EXPECT_EQ(Diff(DefaultSnapshot(*this), after).status, 1);
    EXPECT_EQ(Diff(DefaultSnapshot(*this), after, {"--steady"}).status, 0);
    after["readings"]["WMIGetBiosVersion"]["value"] = {"VK14KL.309"};
    const test::Outcome run = Diff(DefaultSnapshot(*this), after, {"--steady", "--json"});
    EXPECT_EQ(run.status, 1);
    const json differences = json::parse(run.out);
    ASSERT_EQ(differences["differences"].size(), 1u);
    EXPECT_EQ(differences["differences"][0]["name"], "WMIGetBiosVersion");
    EXPECT_EQ(
        differences["differences"][0]["changes"],
        json::parse(R"([{"place": "", "before": "VK14KL.308"}, {"place": "", "after": "VK14KL.309"}])"));
    EXPECT_EQ(differences["compared"].get<int>() + differences["left_out"].get<int>(), 114);
}

TEST_F(ComparingTest, RejectsOtherFilesInOneLine) {
    const std::string good = Write("good.json", DefaultSnapshot(*this).dump());
    const std::pair<std::string, const char*> cases[] = {
        {Path("nowhere.json"), "cannot be read"},
        {Path(""), "cannot be read"},
        {Write("cut.json", DefaultSnapshot(*this).dump().substr(0, 5000)), "not well-formed JSON"},
        {Write("deep.json", std::string(1'000'000, '[')), "not well-formed JSON"},
        {Write("foreign.json", R"({"machine": "x"})"), "not a snapshot"},
        {Write("list.json", "[1]"), "not a snapshot"},
        {Write("newer.json", R"({"format": "sondrel-readings", "version": 2, "readings": {}})"),
         "a snapshot of version 2; this tool reads up to version 1"},
        {Write("none.json", R"({"format": "sondrel-snapshot", "version": 1})"), "it has no readings"},
        {Write("half.json", R"({"format": "sondrel-snapshot", "version": 1, "readings": {"wmiadd": {}}})"),
         "wmiadd has no status or no value"},
    };
    for (const auto& [file, reason] : cases) {
        const test::Outcome run = Tool({"diff", good, file});
        ExpectRefused(run, file);
        EXPECT_THAT(run.err, HasSubstr(reason));
    }
}

/// Parses the text format 0.0.4 strictly: a metric's help, its type, then all of its samples, each once.
std::map<std::string, double> Samples(const std::string& page) {
    static const std::regex Meta(R"(# (HELP|TYPE) ([a-z][a-z0-9_]*) (.+))");
    static const std::regex Sample(
        R"re(([a-z][a-z0-9_]*)(\{([a-z_]+="([^"\\]|\\[\\"n])*"(,(?!\})|(?=\})))+\})? (-?[0-9][0-9.e+-]*))re");
    std::map<std::string, double> samples;
    std::set<std::string> finished;
    std::string metric;
    bool typed = false;
    std::istringstream lines(page);
    for (std::string line; std::getline(lines, line);) {
        std::smatch match;
        if (std::regex_match(line, match, Meta)) {
            if (match[1] == "HELP") {
                EXPECT_TRUE(finished.insert(match[2]).second) << line << ": two parts";
                metric = match[2];
            }
            EXPECT_EQ(match[2], metric) << line;
            typed = match[1] == "TYPE";
            EXPECT_TRUE(!typed || match[3] == "gauge" || match[3] == "counter") << line;
            EXPECT_TRUE(!typed || (match[3] == "counter") == metric.ends_with("_total")) << line;
        } else if (std::regex_match(line, match, Sample)) {
            EXPECT_TRUE(typed && match[1] == metric) << line;
            EXPECT_TRUE(samples.emplace(match[1].str() + match[2].str(), std::stod(match[6])).second) << line;
        } else {
            ADD_FAILURE() << "not in the format: " << line;
        }
    }
    EXPECT_TRUE(page.ends_with('\n'));
    return samples;
}

TEST_F(ComparingTest, PrintsNumbersForPrometheus) {
    const std::map<std::string, double> samples = Samples(Tool({"metrics", "--store", ":memory:"}).out);
    const std::pair<const char*, double> expected[] = {
        {"sondrel_temperature_celsius{sensor=\"cpu\"}", 53},
        {"sondrel_battery_temperature_celsius", 29.65},
        {"sondrel_battery_cell_volts{cell=\"2\"}", 3.884},
        {"sondrel_battery_current_amperes", -1.26},
        {"sondrel_battery_charge_joules", 43050 * 3.6},
        {"sondrel_battery_health_ratio", 0.9},
        {"sondrel_fan_speed_rpm{fan=\"0\"}", 2913},
        {"sondrel_wifi_traffic_bytes_per_second{direction=\"sent\"}", 20480},
        {"sondrel_wifi_max_rate_bytes_per_second", 867e6 / 8},
        {"sondrel_reading_failed{export=\"Thermal_Read_Fan\",state=\"ok\"}", 0},
    };
    for (const auto& [name, number] : expected) {
        ASSERT_TRUE(samples.contains(name)) << name;
        EXPECT_DOUBLE_EQ(samples.at(name), number) << name;
    }
    const auto info = samples.lower_bound("sondrel_machine_info{");
    ASSERT_NE(info, samples.end());
    EXPECT_THAT(info->first, HasSubstr("serial_number=\"VSK4K0C7Q213\""));
}

TEST_F(ComparingTest, LeavesFailedReadingsOutOfTheMetrics) {
    const std::map<std::string, double> samples = Samples(WithDouble({"metrics"}, {"DOUBLE_RATIO=nan"}).out);
    EXPECT_THAT(samples.lower_bound("sondrel_machine_info{")->first,
                HasSubstr(R"(family="one\ntwo \\ \"three\"\\x07")"));
    EXPECT_FALSE(samples.contains("sondrel_temperature_celsius{sensor=\"upper_cpu\"}"));
    EXPECT_EQ(
        samples.at("sondrel_reading_failed{export=\"Thermal_Read_UpCpu_Temperature\",state=\"failed\"}"), 1);
    EXPECT_FALSE(samples.contains("sondrel_battery_cell_volts{cell=\"1\"}"));
    EXPECT_TRUE(samples.contains("sondrel_battery_cell_volts{cell=\"0\"}"));
    EXPECT_EQ(samples.at("sondrel_reading_failed{export=\"Battery_Read_CellVoltage\",state=\"failed\"}"), 1);
    EXPECT_FALSE(samples.contains("sondrel_battery_health_ratio"));
    EXPECT_EQ(samples.at("sondrel_reading_failed{export=\"RF_WiFiMaxRate\",state=\"absent\"}"), 1);
    EXPECT_EQ(
        samples.at("sondrel_reading_failed{export=\"Thermal_Read_ACFET_Temperature\",state=\"absent\"}"), 0);
}

} // namespace
