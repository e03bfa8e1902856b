// What the tool prints for programs, against the published schema; which readings a command line chooses.
#include "json_schema.h"
#include "tool_run.h"

#include <nlohmann/json.hpp>

#include <fstream>
#include <sstream>

namespace {

using nlohmann::json;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class JsonTest : public test::ToolTest {
protected:
    /// Checks a line of `watch --ndjson`, or a whole document.
    json Checked(const std::string& text) const {
        const json document = json::parse(text, nullptr, false);
        EXPECT_THAT(m_schema.ErrorsIn(document), IsEmpty()) << text;
        return document;
    }

    /// The names in the first column.
    static std::string NamesIn(const test::Outcome& run) {
        std::istringstream lines(run.out);
        std::string names;
        for (std::string line; std::getline(lines, line);) {
            names += line.substr(0, line.find('\t')) + ' ';
        }
        return names;
    }

    const test::JsonSchema m_schema{json::parse(ContentOf(READINGS_SCHEMA))};
};

TEST_F(JsonTest, EveryCommandPrintsTheSameKind) {
    const std::vector<std::string> store{"--store", ":memory:"};
    for (const char* const machine : {"default", "awkward-sensors", "awkward-wmi"}) {
        SCOPED_TRACE(machine);
        EXPECT_EQ(
            Checked(Tool({"report", "--json", "--machine", machine, "--store", ":memory:"}).out)["readings"]
                .size(),
            114u);
    }
    EXPECT_EQ(Checked(WithDouble({"report", "--json"}, {"DOUBLE_REFUSES=1"}).out)["observed"], false);
    EXPECT_EQ(Checked(Tool({"snapshot", "-", "--no-session", "--store", ":memory:"})
                          .out)["readings"]["WMISetQuietFan"]["state"],
              nullptr);

    const json call = Checked(Tool({"call", "CPU_ReadCpuId", "0x80000002", "--json"}).out);
    EXPECT_EQ(call["readings"]["CPU_ReadCpuId"]["argument"], "0x80000002");
    EXPECT_EQ(call["readings"].size(), 1u);
    const json failed = Checked(Tool({"call", "Thermal_Read_Fan", "--json", "--no-session"}).out);
    EXPECT_EQ(failed["readings"]["Thermal_Read_Fan"]["state"], "no session");
    EXPECT_EQ(failed["readings"]["Thermal_Read_Fan"]["value"], nullptr);

    const test::Outcome watch = Tool({"watch", "Battery_Read_Current", "RF_WiFiRssi", "--ndjson", "--count",
                                      "2", "--interval", "0.01", "--store", ":memory:"});
    std::istringstream lines(watch.out);
    int samples = 0;
    for (std::string line; std::getline(lines, line); ++samples) {
        const json reading = Checked(line)["readings"]["Battery_Read_Current"];
        EXPECT_EQ(reading["value"], -1260);
        EXPECT_EQ(reading["converted"],
                  json::parse(R"({"value": -1.26, "unit": "A", "assumed_unit": "mA"})"));
    }
    EXPECT_EQ(samples, 2);
}

TEST_F(JsonTest, NamesPatternsAndGroupsChooseReadings) {
    const auto chosen = [&](std::vector<std::string> words) {
        words.insert(words.begin(), "read");
        words.insert(words.end(), {"--fields", "name"});
        return NamesIn(WithDouble(words));
    };
    EXPECT_EQ(chosen({"*_ACFET_*", "Thermal_Read_Fan", "Thermal_Read_C?u_T*"}),
              "Thermal_Read_ACFET_Temperature Thermal_Read_Fan Thermal_Read_Cpu_Temperature ");
    EXPECT_EQ(chosen({"Thermal_Read_Fan", "Thermal_*_Fan*"}), "Thermal_Read_Fan ");
    EXPECT_THAT(chosen({"battery"}), AllOf(HasSubstr("Battery_Read_ASOC "), HasSubstr("_CellVoltage ")));
    EXPECT_THAT(chosen({"battery_ec"}), Not(HasSubstr("Battery_Read_ASOC ")));
    EXPECT_THAT(chosen({"features"}), Not(HasSubstr("Set")));
    ExpectRefused(WithDouble({"read", "Thermal_??"}), "no reading of this library is called Thermal_??");
    ExpectRefused(WithDouble({"read", "WMISetQuietFan"}), "changes something; only readings can be chosen");
    ExpectRefused(WithDouble({"read", "EC_ReadEcFwRev"}), "this library does not export");
    ExpectRefused(WithDouble({"read", "wmiadd", "--fields", "name,size"}), "--fields: size not in {");

    const test::Outcome fields = Tool({"read", "Battery_Read_CellVoltage", "GetSENSOR_WMI_Data", "--fields",
                                       "value,converted,converted_unit,state,cause", "--store", ":memory:"});
    EXPECT_EQ(fields.out, "[3862,3873,3884,3895]\t[3.862,3.873,3.884,3.895]\tV\tok\t\n"
                          "{\"p_sensor\":\"0x10001\"}\t\t\tok\t\n");
    EXPECT_THAT(Tool({"read", "Thermal_Read_Fan", "--fields", "value,cause", "--no-session"}).out,
                StartsWith("\t"));
}

TEST_F(JsonTest, AConditionEndsAWatch) {
    struct Case {
        const char* condition;
        int status;
        const char* message;
    };

    const Case cases[] = {
        {"Thermal_Read_Cpu_Temperature > 52", 0, ""},
        {"Thermal_Read_Cpu_Temperature>=52", 1, "sondrel: Thermal_Read_Cpu_Temperature is 52 °C: "},
        {"Battery_Read_CellVoltage[0] == 4150", 1, "Battery_Read_CellVoltage[0] is 4150: "},
        {"Battery_Read_CellVoltage[2] < 1", 2, "Battery_Read_CellVoltage had no number in any sample"},
        {"Battery_Read_CellVoltage != 4150", 0, ""},
        {"CPU_ReadCPUUsage <= 0.2", 0, ""},
        {"Thermal_Read_UpCpu_Temperature < 9e9", 2, "Thermal_Read_UpCpu_Temperature had no number in any"},
        {"Battery_Read_CellVoltage[1] < 1", 2, "Battery_Read_CellVoltage had no number in any sample"},
    };
    for (const auto& [condition, status, message] : cases) {
        const test::Outcome run = WithDouble({"watch", "Thermal_Read_Cpu_Temperature", "--count", "2",
                                              "--interval", "0.01", "--fail-if", condition});
        EXPECT_EQ(run.status, status) << condition;
        EXPECT_THAT(run.err, HasSubstr(message)) << condition;
    }
    const std::pair<const char*, const char*> wrong[] = {
        {"Thermal_Read_Cpu_Temperature", "--fail-if takes a reading, a comparison and a number"},
        {"Thermal_Read_Cpu_Temperature = 5", "--fail-if takes"},
        {"Thermal_Read_Cpu_Temperature > warm", "--fail-if takes"},
        {"Thermal_Read_Cpu_Temperature > 5 > 6", "--fail-if takes"},
        {"Thermal_Read_Fan[x] > 5", "--fail-if takes"},
        {"Thermal_Read_Fan[4] > 5", "there is no such element"},
        {"> 5", "--fail-if takes"},
        {"Thermal_Read_Fam > 5", "did you mean Thermal_Read_Fan?"},
    };
    for (const auto& [condition, reason] : wrong) {
        ExpectRefused(WithDouble({"watch", "--fail-if", condition}), reason);
    }
}

} // namespace
