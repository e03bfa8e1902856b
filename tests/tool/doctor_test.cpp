// What `doctor` says is missing, and why.
#include "base/process_facts.h"
#include "json_schema.h"
#include "tool_run.h"

#include <nlohmann/json.hpp>

namespace {

using nlohmann::json;

class DoctorTest : public test::ToolTest {
protected:
    /// The report on a machine like the default one, changed by a merge patch. `status`: of the tool.
    [[nodiscard]] json Examine(const char* changes, int status) const {
        json profile = json::parse(ContentOf(DEFAULT_MACHINE_FILE));
        profile.merge_patch(json::parse(changes));
        const test::Outcome run = Tool(
            {"doctor", "--json", "--machine", Write("machine.json", profile.dump()), "--store", ":memory:"});
        EXPECT_EQ(run.status, status) << run.err;
        return json::parse(run.out);
    }
};

TEST_F(DoctorTest, NamesWhatIsMissing) {
    struct Case {
        const char* changes;
        const char* name;
        const char* state;
        const char* operation;
    };

    const Case cases[] = {
        {R"({"driver": {"present": false}})", "driver", "absent", "CreateFileW"},
        {R"({"driver": {"present": false}})", "ec", "no session", "CreateFileW"},
        {R"({"driver": {"held_by_other": "alone"}})", "driver", "in use", "CreateFileW"},
        {R"({"acpi": {"present": false}})", "acpi", "absent", "CreateFileW"},
        {R"({"batteries": []})", "battery", "absent", "SetupDiEnumDeviceInterfaces"},
        {R"({"firmware_variables": {"privilege_held": false}})", "firmware-privilege", "denied", nullptr},
        {R"({"firmware_variables": {"privilege_held": false}})", "firmware-kind", "denied", nullptr},
        {R"({"wifi": {"service": "stopped"}})", "wlan-service", "failed", "WlanOpenHandle"},
        {R"({"wifi": {"interfaces": []}})", "wlan-adapter", "absent", "WlanEnumInterfaces"},
        {R"({"bluetooth": {"radios": []}})", "bluetooth", "absent", "BluetoothFindFirstRadio"},
        {R"({"audio": null})", "audio", "absent", nullptr},
        {R"({"registry": {"values": []}})", "app-path", "absent", "RegOpenKeyExW"},
        {R"({"wmi": {"ROOT\\WMI": null}})", "VeskZrnWmi_WMNB", "absent", nullptr},
    };
    const test::JsonSchema schema{json::parse(ContentOf(DOCTOR_SCHEMA))};
    for (const auto& [changes, name, state, operation] : cases) {
        SCOPED_TRACE(std::string(name) + changes);
        const json report = Examine(changes, 1);
        EXPECT_EQ(schema.ErrorsIn(report), "");
        EXPECT_EQ(report["met"], false);
        bool isListed = false;
        for (const json& each : report["preconditions"]) {
            if (each["name"] == name) {
                isListed = true;
                EXPECT_EQ(each["met"], false);
                EXPECT_EQ(each["state"], state);
                EXPECT_TRUE(operation == nullptr || each["cause"]["operation"] == operation) << each;
            }
        }
        EXPECT_TRUE(isListed);
    }
    EXPECT_EQ(Examine("{}", 0)["met"], true);
}

TEST_F(DoctorTest, ChecksDirectoriesWithoutWriting) {
    EXPECT_TRUE(tool::host_system::IsWritableDirectory(Path("")));
    EXPECT_FALSE(tool::host_system::IsWritableDirectory(Path("none")));
    EXPECT_FALSE(tool::host_system::IsWritableDirectory(Write("file", "")));
}

} // namespace
