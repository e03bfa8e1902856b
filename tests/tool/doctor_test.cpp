// What `doctor` says is missing, and why.
#include "base/process_facts.h"
#include "json_schema.h"
#include "readings/preconditions.h"
#include "tool_run.h"

#include <nlohmann/json.hpp>

#include <unistd.h>

#include <set>
#include <sstream>

namespace {

using nlohmann::json;
using ::testing::HasSubstr;

class DoctorTest : public test::ToolTest {
protected:
    /// The report on a machine like the default one, changed by a merge patch. `status`: of the tool.
    [[nodiscard]] json Examine(const char* changes, int status) const {
        json profile = json::parse(ContentOf(DEFAULT_MACHINE_FILE));
        profile.merge_patch(json::parse(changes));
        return Report({"--machine", Write("machine.json", profile.dump()), "--store", ":memory:"}, status);
    }

    [[nodiscard]] json Report(std::vector<std::string> arguments, int status) const {
        arguments.insert(arguments.begin(), {"doctor", "--json"});
        const test::Outcome run = Tool(arguments);
        EXPECT_EQ(run.status, status) << run.err;
        json report = json::parse(run.out, nullptr, false);
        EXPECT_EQ(m_schema.ErrorsIn(report), "");
        return report;
    }

    static json Finding(const json& report, std::string_view name) {
        for (const json& each : report["preconditions"]) {
            if (each["name"] == name) {
                return each;
            }
        }
        ADD_FAILURE() << "not listed: " << name;
        return {};
    }

    const test::JsonSchema m_schema{json::parse(ContentOf(DOCTOR_SCHEMA))};
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
        {R"({"ec": {"revision": "ZZ"}})", "ec-map", "absent", nullptr},
    };
    for (const auto& [changes, name, state, operation] : cases) {
        SCOPED_TRACE(std::string(name) + changes);
        const json report = Examine(changes, 1);
        EXPECT_EQ(report["met"], false);
        const json finding = Finding(report, name);
        EXPECT_EQ(finding["met"], false);
        EXPECT_EQ(finding["state"], state);
        EXPECT_TRUE(operation == nullptr || finding["cause"]["operation"] == operation) << finding;
    }
    EXPECT_EQ(Examine("{}", 0)["met"], true);
}

/// What no profile can say is said by a recording of a good machine in which some calls were made to fail.
class FailedCallTest : public DoctorTest {
protected:
    FailedCallTest() {
        const std::string file = Path("good.rec");
        EXPECT_EQ(Program(SONDREL_PROGRAM, {"doctor", "--store", ":memory:"}, {"VESK_RECORD=" + file}).status,
                  0);
        m_lines = ContentOf(file);
    }

    /// The calls of an operation whose inputs contain the text return `result`.
    [[nodiscard]] json ExamineWith(std::string_view operation, const std::string& text,
                                   const json& result) const {
        std::string edited;
        std::set<json> failing;
        std::istringstream lines(m_lines);
        for (std::string line; std::getline(lines, line);) {
            const json entry = json::parse(line);
            if (entry.value("operation", "") == operation &&
                entry["in"].dump().find(text) != std::string::npos) {
                failing.insert(entry["call"]);
            }
            if (entry.contains("end") && failing.contains(entry["end"])) {
                line = json{{"end", entry["end"]}, {"result", result}, {"took", 1}}.dump();
            }
            edited += line + '\n';
        }
        EXPECT_FALSE(failing.empty()) << operation;
        return Report({"--machine", Write("edited.rec", edited)}, 1);
    }

    std::string m_lines;
};

TEST_F(FailedCallTest, EachClassAndNamespaceIsNamed) {
    const json noClass = json::parse(R"({"$hex": "80041010"})");
    const json noNamespace = json::parse(R"({"$hex": "8004100e"})");
    int classes = 0;
    for (const tool::Precondition& precondition : tool::AllPreconditions()) {
        SCOPED_TRACE(precondition.name);
        const bool isClass = precondition.title == "WMI class";
        if (!isClass && precondition.title != "WMI namespace") {
            continue;
        }
        std::string text(isClass ? precondition.subject : precondition.name);
        text = json(text).dump(); // as in the recording
        const json report = isClass ? ExamineWith("ExecQuery", text.substr(1, text.size() - 2), noClass)
                                    : ExamineWith("ConnectServer", text, noNamespace);
        const json finding = Finding(report, precondition.name);
        EXPECT_EQ(finding["state"], "absent") << finding;
        EXPECT_EQ(finding["cause"]["operation"], isClass ? "ExecQuery" : "ConnectServer") << finding;
        EXPECT_EQ(finding["cause"]["remedy"], "install the driver that provides it");
        ++classes;
    }
    EXPECT_EQ(classes, 3 + 19);
}

TEST_F(FailedCallTest, NamesTheDecidingCall) {
    struct Case {
        const char* operation;
        const char* text;
        const char* result;
        const char* name;
        const char* state;
    };

    const Case cases[] = {
        {"WlanGetNetworkBssList", "", "5", "location-consent", "denied"},
        {"WlanQueryInterface", "", "5", "location-consent", "denied"},
        {"WlanOpenHandle", "", "1062", "wlan-service", "failed"},
        {"DeviceIoControl", "80102040", "false", "driver-version", "absent"},
        {"GetMasterVolumeLevelScalar", "", R"({"$hex": "88890004"})", "audio", "failed"},
        {"ExecQuery", "win32_ComputerSystem", R"({"$hex": "80041003"})", "signed-in-user", "denied"},
        {"ConnectServer", "ROOT\\\\WMI", R"({"$hex": "80041003"})", "ROOT\\WMI", "denied"},
        {"CoInitializeEx", "", R"({"$hex": "80010106"})", "ROOT\\CIMV2", "failed"},
    };
    for (const auto& [operation, text, result, name, state] : cases) {
        SCOPED_TRACE(std::string(operation) + text);
        const json finding = Finding(ExamineWith(operation, text, json::parse(result)), name);
        EXPECT_EQ(finding["met"], false);
        EXPECT_EQ(finding["state"], state);
        EXPECT_EQ(finding["cause"]["operation"], operation) << finding;
    }
}

TEST_F(DoctorTest, ChecksLibraryAndProcess) {
    const json report = Report({"--library", DOUBLE_LIBRARY}, 1);
    EXPECT_EQ(Finding(report, "library")["state"], "failed");
    EXPECT_EQ(Finding(report, "exports")["state"], "absent");
    EXPECT_THAT(Finding(report, "exports")["cause"]["rule"].get<std::string>(), HasSubstr("RF_WiFiMaxRate"));
    EXPECT_EQ(Finding(report, "elevation")["met"], geteuid() == 0);
    EXPECT_EQ(Finding(report, "ec")["met"], nullptr); // not observed
}

TEST_F(DoctorTest, ChecksDirectoriesWithoutWriting) {
    EXPECT_TRUE(tool::host_system::IsWritableDirectory(Path("")));
    EXPECT_FALSE(tool::host_system::IsWritableDirectory(Path("none")));
    EXPECT_FALSE(tool::host_system::IsWritableDirectory(Write("file", "")));
}

} // namespace
