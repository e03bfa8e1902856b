// sondrel machine, and the published schema of profiles against the reader that a machine is made with.
#include "json_schema.h"
#include "tool_run.h"

#include "machine/profile/built_in_machines.h"
#include "machine/profile/profile.h"
#include "machines/json_places.h"

#include <nlohmann/json.hpp>

#include <sys/stat.h>

#include <filesystem>

namespace {

using nlohmann::json;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class MachineCommandTest : public test::ToolTest {
protected:
    [[nodiscard]] bool SchemaAccepts(const json& profile) const {
        return m_compiled.ErrorsIn(profile).empty();
    }

    static machine::ProfileIssues IssuesOf(const std::string& profile) {
        machine::ProfileIssues issues;
        machine::ReadProfile(profile, issues);
        return issues;
    }

    static std::string Printed(const machine::ProfileIssues& issues) {
        std::string lines;
        for (const machine::ProfileIssue& issue : issues) {
            lines += issue.pointer + ": " + issue.message + '\n';
        }
        return lines;
    }

    /// What the reader says of a name that it does not know in the object at `pointer`.
    static std::string KnownNames(json profile, const json::json_pointer& pointer) {
        profile[pointer]["zz"] = 1;
        for (const machine::ProfileIssue& issue : IssuesOf(profile.dump())) {
            if (issue.pointer == (pointer / "zz").to_string()) {
                return issue.message;
            }
        }
        return "accepted";
    }

    /// Compares the names of an object of the schema, and of all objects below it, with those of the reader.
    void CompareNames(const json& node, const json::json_pointer& pointer, const json& profile) {
        const json& resolved =
            node.contains("$ref")
                ? m_schema.at(json::json_pointer(node.at("$ref").get<std::string>().substr(1)))
                : node;
        if (resolved.contains("items")) {
            CompareNames(resolved.at("items"), pointer / 0, profile);
        }
        const auto properties = resolved.find("properties");
        if (properties == resolved.end()) {
            return;
        }
        std::string known;
        for (const auto& [name, member] : properties->items()) {
            known += (known.empty() ? "" : ", ") + name;
            if (pointer.to_string().find("/children") == std::string::npos) { // a window, again
                CompareNames(member, pointer / name, profile);
            }
        }
        EXPECT_EQ(KnownNames(profile, pointer), "unknown name; expected one of " + known) << pointer;
        ++m_compared;
    }

    const json m_schema = json::parse(ContentOf(PROFILE_SCHEMA));
    const test::JsonSchema m_compiled{m_schema};
    int m_compared = 0;
};

TEST_F(MachineCommandTest, ReaderAndSchemaAcceptEveryBuiltInMachine) {
    for (const machine::BuiltInMachine& builtIn : machine::BuiltInMachineTexts()) {
        EXPECT_EQ(Printed(IssuesOf(std::string(builtIn.text))), "") << builtIn.name;
        EXPECT_TRUE(SchemaAccepts(json::parse(builtIn.text))) << builtIn.name;
    }
}

TEST_F(MachineCommandTest, ReaderAndSchemaKnowTheSameNames) {
    CompareNames(m_schema, json::json_pointer(), json::parse(R"({"name": "x", "ec": {}})"));
    EXPECT_GT(m_compared, 40);
}

TEST_F(MachineCommandTest, ReaderAndSchemaAgree) {
    struct Case {
        const char* changes; // a merge patch of the default machine
        const char* pointer; // of the one error; null for a good profile
        bool schemaCanSay = true;
    };

    const Case cases[] = {
        {R"({"$schema": "profile.schema.json"})", nullptr},
        {R"({"ec": {"chip_id": "0xff", "lid": "0x00000000000000Ff"}})", nullptr},
        {R"({"ec": {"chip_id": 256}})", "/ec/chip_id"},
        {R"({"ec": {"chip_id": "0x100"}})", "/ec/chip_id"},
        {R"({"ec": {"chip_id": "0x"}})", "/ec/chip_id"},
        {R"({"ec": {"chip_id": "0x00000000000000001"}})", "/ec/chip_id"},
        {R"({"ec": {"chip_id": -1}})", "/ec/chip_id"},
        {R"({"ec": {"chip_id": 1.5}})", "/ec/chip_id"},
        {R"({"ec": {"revision": "é"}})", "/ec/revision"},
        {R"({"ec": {"revision": null}})", "/ec"},
        {R"({"ec": {"fan": []}})", "/ec/fan"},
        {R"({"ec": {"fans": {}}})", "/ec/fans"},
        {R"({"ec": {"fans": [1]}})", "/ec/fans/0"},
        {R"({"ec": {"sensors": {"ac_fet": {"valid": 1}}}})", "/ec/sensors/ac_fet/valid"},
        {R"({"ec": {"battery": {"current": -32.768, "manufacture_date": "2107-15-31"}}})", nullptr},
        {R"({"ec": {"battery": {"current": -32.769}}})", "/ec/battery/current"},
        {R"({"ec": {"battery": {"manufacture_date": "2108-00-00"}}})", "/ec/battery/manufacture_date"},
        {R"({"ec": {"battery": {"cell_voltages": [1, 2, 3, 4, 5]}}})", "/ec/battery/cell_voltages"},
        {R"({"ec": {"battery": {"manufacturer": "ABCDEFGHIJK"}}})", "/ec/battery/manufacturer"},
        {R"({"ec": {"battery": {"manufacturer": "ÄÖÜÄÖÜ"}}})", "/ec/battery/manufacturer", false},
        {R"({"ec": {"faults": [{"command": 1}]}})", "/ec/faults/0"},
        {R"({"system_power": {"processors": "0x400"}})", nullptr},
        {R"({"system_power": {"processors": "0x401"}})", "/system_power/processors"},
        {R"({"system_power": {"running_on": "air"}})", "/system_power/running_on"},
        {R"({"registry": {"values": [{"key": "HKLM\\a", "name": "", "type": "REG_DWORD", "data": "0x10"},
             {"key": "HKCU\\a", "name": "", "type": "REG_MULTI_SZ", "data": ["a"]},
             {"key": "HKCU\\a", "name": "", "type": "REG_BINARY", "data": "01 fF"},
             {"key": "HKCU\\a", "name": "", "type": "REG_SZ", "data": {"bytes": "01"}}]}})",
         nullptr},
        {R"({"registry": {"values": [{"key": "HKLM\\a", "name": "", "type": "REG_DWORD", "data": "a"}]}})",
         "/registry/values/0/data"},
        {R"({"registry": {"values": [{"key": "HKLM\\a", "name": "", "data": {"bytes": "0"}}]}})",
         "/registry/values/0/data"},
        {R"({"registry": {"values": [{"key": "HKLM\\a", "name": "", "type": "REG_BINARY", "data": "0:1"}]}})",
         "/registry/values/0/data"},
        {R"({"registry": {"read_only": ["HKU\\a"]}})", "/registry/read_only/0"},
        {R"({"wifi": {"interfaces": [{"description": "a", "guid": "{5E1B8C0F}"}]}})",
         "/wifi/interfaces/0/guid"},
        {R"({"wifi": {"interfaces": [{"description": "a", "connection":
             {"ssid": "a", "bssid": "02:1A:2B:3C:4D", "phy": "ht"}}]}})",
         "/wifi/interfaces/0/connection/bssid"},
        {R"({"wifi": {"interfaces": [{"description": "a", "connection":
             {"ssid": "a", "bssid": "02:1A:2B:3C:4D:5E", "phy": "ht", "phy_number": 1}}]}})",
         "/wifi/interfaces/0/connection"},
        {R"({"acpi": {"log": [{"reply": "00", "kind": 1}]}})", "/acpi/log/0"},
        {R"({"acpi": {"log": [{"stamp": "00 00 00"}]}})", "/acpi/log/0/stamp"},
        {R"({"acpi": {"registers": ["0x100000000"]}})", "/acpi/registers/0"},
        {R"({"firmware_variables": {"variables": [{"name": "A", "size": 4, "fields": [{"at": 0, "text": "abcd"}]}]}})",
         nullptr},
        {R"({"firmware_variables": {"variables": [{"name": "A", "size": 4, "fields": [{"at": 1, "text": "abcd"}]}]}})",
         "/firmware_variables/variables/0/fields/0/at", false},
        {R"({"firmware_variables": {"variables": [{"name": "A", "size": 4, "fields": [{"at": 1}]}]}})",
         "/firmware_variables/variables/0/fields/0"},
        {R"({"files": {"directories": ["Windows"]}})", "/files/directories/0"},
        {R"({"files": {"directories": ["/:\\..\\tmp\\victim"]}})", "/files/directories/0"},
        {R"({"files": {"files": [{"path": "/:\\..\\tmp\\victim", "text": "x"}]}})", "/files/files/0/path"},
        {R"({"files": {"locked": ["/etc/passwd"]}})", "/files/locked/0"},
        {R"({"files": {"directories": ["C:\\a\u0000b"]}})", "/files/directories/0", false},
        {R"({"name": "../victim"})", "/name"},
        {R"({"name": "a\\b"})", "/name"},
        {R"({"name": "a\u001bb"})", "/name"},
        {R"({"name": "a\u009bb"})", "/name", false},
        {R"({"name": ""})", "/name"},
        {R"({"name": "Ünï 机"})", nullptr},
        {R"({"packages": {"all": [{"full_name": "a", "manifest": "", "display_name": ""}]}})",
         "/packages/all/0"},
        {R"({"windows": [{"name": "a", "children": [{"title": "b"}]}]})", "/windows/0/children/0"},
        {R"({"wmi": {"R": {"C": [{"a": null, "b": [1, 2], "c": {"lower_bound": 3, "values": ["x"]}}]}}})",
         nullptr},
        {R"({"wmi": {"R": {"C": [{"a": 1.5}]}}})", "/wmi/R/C/0/a"},
        {R"({"wmi": {"R": {"C": [{"a": {"bytes": "0g"}}]}}})", "/wmi/R/C/0/a"},
        {R"({"wmi": {"R": {"C": {}}}})", "/wmi/R/C"},
        {R"({"system": {"date": "2024-02-29T23:59:59"}})", nullptr},
        {R"({"system": {"date": "2023-02-29T00:00:00"}})", "/system/date"},
        {R"({"system": {"date": "2100-02-29T00:00:00"}})", "/system/date"},
        {R"({"system": {"date": "2024-5-17T8:30:00"}})", "/system/date"},
        {R"({"system": {"date": "2024-05-17 08:30:00"}})", "/system/date"},
        {R"({"audio": {"volume": 1.01}})", "/audio/volume"},
        {R"({"course": {"load": [{"seconds": 1}]}})", "/course/load/0"},
        {R"({"course": {"load": [{"to": 1, "seconds": 0}]}})", "/course/load/0/seconds"},
        {R"({"course": {"warming": {"keyboard": {}}}})", "/course/warming/keyboard"},
        {R"({"course": {"fans": [{"follows": "keyboard"}]}})", "/course/fans/0/follows"},
        {R"({"course": {"fans": [{"curve": [{"degrees": 1}]}]}})", "/course/fans/0/curve/0"},
        {R"({"course": {"running_on": [{}]}})", "/course/running_on/0"},
        {R"({"name": null})", "/"},
        {"1", "/"},
    };
    const json original = json::parse(machine::BuiltInMachineTexts().front().text);
    for (const Case& each : cases) {
        SCOPED_TRACE(each.changes);
        json profile = original;
        profile.merge_patch(json::parse(each.changes));
        const machine::ProfileIssues issues = IssuesOf(profile.dump());
        ASSERT_EQ(issues.size(), each.pointer == nullptr ? 0u : 1u) << Printed(issues);
        if (each.pointer != nullptr) {
            EXPECT_THAT(issues.front().pointer.empty() ? "/" : issues.front().pointer,
                        StartsWith(each.pointer));
        }
        EXPECT_EQ(SchemaAccepts(profile), each.pointer == nullptr || !each.schemaCanSay);
    }
}

TEST_F(MachineCommandTest, ReportsAllErrorsWithTheirPlaces) {
    const std::string file = Write("mine.json", "{\n"
                                                "  \"name\": \"é\", \"nam\": 1,\n"
                                                "  \"ec\": {\n"
                                                "    \"revision\": \"KL\", \"chip_id\": \"0x\\u0031gg\",\n"
                                                "    \"fans\": [{\"rpm\": 1},\n"
                                                "             {\"rpm\": -2}], \"lid\": 0, \"lid\": 1\n"
                                                "  }\n}\n");
    const test::Outcome run = Tool({"machine", "check", file});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, IsEmpty());
    EXPECT_EQ(
        run.out,
        file + ":2:16: /nam: unknown name; did you mean \"name\"?\n" + //
            file +
            ":3:3: /ec: \"chip_name\" is missing: expected a string of 4 printable ASCII characters\n" + //
            file +
            ":4:23: /ec/chip_id: expected a whole number from 0 to 255, or the same as \"0x...\"\n" + //
            file +
            ":6:15: /ec/fans/1/rpm: expected a whole number from 0 to 4294967295, or the same as "
            "\"0x...\"\n" +
            file + ":6:38: /ec/lid: is in this object twice\n");
    const test::Outcome broken =
        Tool({"machine", "check", Write("broken.json", "{\n \"name\": \"a\",\n \"ec\" 3}")});
    EXPECT_EQ(broken.status, 1);
    EXPECT_THAT(broken.out, HasSubstr("broken.json:3:7: not a JSON document: "));
    const std::string huge = Write("huge.json", "{\n \"name\": 2e999}");
    EXPECT_EQ(Tool({"machine", "check", huge}).out,
              huge + ":2:14: not a JSON document: number overflow parsing '2e999'\n");
    // Any text gets an answer.
    for (const std::string& text : {std::string(200'000, '['), std::string(), std::string("\"\xFF\""),
                                    R"({"ec": {"revision": ")" + std::string(1'000'000, 'K') + "\"}}"}) {
        EXPECT_EQ(Tool({"machine", "check", Write("odd.json", text)}).status, 1);
    }
    EXPECT_EQ(Tool({"machine", "check", Path("nowhere.json")}).status, 2);
}

TEST_F(MachineCommandTest, OnlyARegularFileOfSomeSizeIsAProfile) {
    const std::string pipe = Path("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const std::string large = Write("large.json", std::string((std::size_t{8} << 20) + 1, ' '));
    const std::pair<std::string, const char*> files[] = {
        {pipe, "not a regular file"},
        {"/dev/zero", "not a regular file"},
        {std::filesystem::temp_directory_path(), "not a regular file"},
        {large, "larger than 8388608 bytes"},
        {Path("nowhere.json"), "no such file"}};
    for (const auto& [file, reason] : files) {
        ExpectRefused(Tool({"machine", "check", file}), reason);
        ExpectRefused(Tool({"report", "--machine", file, "--store", ":memory:"}), reason);
    }
}

TEST_F(MachineCommandTest, MakesAndShowsAMachineWithoutALibrary) {
    const std::vector<std::string> noLibrary{"--library", Path("nowhere.so")};
    const auto run = [&](std::vector<std::string> line) {
        line.insert(line.end(), noLibrary.begin(), noLibrary.end());
        return Tool(line);
    };
    const std::string file = Path("bench-7.json");
    EXPECT_EQ(run({"machine", "new", "gl", "-o", file}).status, 0);
    EXPECT_THAT(run({"machine", "check", file}).out, HasSubstr("a good profile"));
    EXPECT_THAT(run({"machine", "show", file}).out,
                AllOf(StartsWith("bench-7: "), HasSubstr("EC revision           GL\n")));
    const std::string made = ContentOf(file);
    EXPECT_EQ(run({"machine", "new", "KL", "-o", file}).status, 2);
    EXPECT_EQ(ContentOf(file), made);
    EXPECT_EQ(Tool({"call", "EC_ReadEcFwRev", "--machine", file, "--store", ":memory:"}).out, "18252\n");
    EXPECT_THAT(run({"machine", "new", "--from", file}).out, HasSubstr(R"("name": "my-machine")"));
    EXPECT_THAT(run({"machine", "list"}).out, StartsWith("default  "));
    ExpectRefused(run({"machine", "new", "KL", "-o", Path(".hidden")}), "/name: expected");
    EXPECT_EQ(run({"machine", "new", "XX"}).status, 2);
    EXPECT_EQ(run({"machine", "new"}).status, 2);
    EXPECT_EQ(run({"machine", "show", Path("nowhere")}).status, 2);
}

} // namespace
