// The state of each reading, and its cause.
#include "tool_run.h"

#include <nlohmann/json.hpp>

namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::Not;

class CausesTest : public test::ToolTest {
protected:
    /// A machine like the default one, changed by a merge patch.
    [[nodiscard]] std::string Machine(const char* changes) const {
        json profile = json::parse(ContentOf(DEFAULT_MACHINE_FILE));
        profile.merge_patch(json::parse(changes));
        return Write("machine.json", profile.dump());
    }
};

TEST_F(CausesTest, NamesWhatDecidedTheState) {
    struct Case {
        const char* changes;
        const char* name;
        const char* state;
        const char* text; // in the report
        std::vector<std::string> options;
    };

    constexpr const char* NoDriver = R"({"driver": {"present": false}})";
    constexpr const char* DriverGone = ", because CreateFileW \\\\.\\VESKHWIO failed with 2 (the device or "
                                       "file does not exist): install the "
                                       "I/O driver\n";
    const Case cases[] = {
        {NoDriver, "Thermal_Read_Fan", "no session", DriverGone},
        {NoDriver, "Battery_Get_LidStatus", "no session", DriverGone},
        {R"({"driver": {"held_by_other": "alone"}})", "Thermal_Read_Cpu_Temperature", "no session",
         "VESKHWIO failed with 32 (in use by another process): close the other program that uses it\n"},
        {"{}",
         "Thermal_Read_Cpu_Temperature",
         "no session",
         "--no-session: none was opened\n",
         {"--no-session"}},
        {"{}", "WMIGetHDDModel", "absent",
         "absent: empty, because Next select * from MSFT_PhysicalDisk where mediatype=3 in "
         "root\\Microsoft\\Windows\\Storage returned no row\n"},
        {R"({"wifi": {"service": "stopped"}})", "RF_WiFiRssi", "failed",
         "because WlanOpenHandle returned 1062 (the WLAN service does not run): start the service WlanSvc\n"},
        {R"({"wifi": {"interfaces": []}})", "RF_WiFiChannel", "absent",
         "WlanEnumInterfaces returned no interface\n"},
        {R"({"firmware_variables": {"privilege_held": false}})", "GPNV_Get_RandomUUID", "denied",
         "run elevated\n"},
        {R"({"batteries": []})", "Battery_Read_CapacityPercentage", "absent",
         "SetupDiEnumDeviceInterfaces failed with 259 (no device)\n"},
        {R"({"ec": {"faults": [{"command": "0x80", "status": 5}]}})", "Thermal_Read_Cpu_Temperature",
         "failed",
         "failed: 2147483647, because DeviceIoControl EC command 80 03 a0 in \\\\.\\VESKHWIO was answered "
         "with the "
         "EC's status 5\n"},
        {R"({"ec": {"sensors": {"ready": false}}})", "Thermal_Read_ACFET_Temperature", "not ready",
         "the sensor has no measurement yet (0)\n"},
    };
    for (const auto& [changes, name, state, text, options] : cases) {
        SCOPED_TRACE(std::string(name) + changes);
        std::vector<std::string> line{"report", "--machine", Machine(changes), "--store", ":memory:"};
        line.insert(line.end(), options.begin(), options.end());
        const std::string out = Tool(line).out;
        const std::size_t begin = out.find(std::string("\n  ") + name) + 1;
        EXPECT_THAT(out.substr(begin, out.find('\n', begin) + 1 - begin), HasSubstr(text));
        line.emplace_back("--json");
        const json report = json::parse(Tool(line).out);
        EXPECT_EQ(report["observed"], true);
        const json& reading = report["readings"][name];
        EXPECT_EQ(reading["state"], state);
        EXPECT_EQ(reading["value"], nullptr); // what was not read is no value
        EXPECT_TRUE(reading.contains("cause")) << reading;
    }
}

TEST_F(CausesTest, PublishesNothingThatWasNotRead) {
    const std::string machine = Machine(R"({"driver": {"present": false}, "batteries": []})");
    const test::Outcome metrics = Tool({"metrics", "--machine", machine, "--store", ":memory:"});
    EXPECT_THAT(metrics.out, HasSubstr("{export=\"Thermal_Read_Fan\",state=\"no session\"} 1\n"));
    for (const char* const missing :
         {"\nsondrel_fan_speed_rpm", "\nsondrel_battery_cycles", "\nsondrel_temp"}) {
        EXPECT_THAT(metrics.out, Not(HasSubstr(missing)));
    }
    const test::Outcome watch = Tool({"watch", "RF_WiFiRssi", "Thermal_Read_Fan", "--machine", machine,
                                      "--store", ":memory:", "--count", "2", "--interval", "0.01"});
    EXPECT_THAT(watch.out, HasSubstr("no session: CreateFileW"));
    EXPECT_THAT(watch.out, HasSubstr("-52 dBm (stale)")); // the radio is read once in a process
}

} // namespace
