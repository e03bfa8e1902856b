// The tool and the example host on the simulated machine.
#include "tool_run.h"

#include <nlohmann/json.hpp>

#include <filesystem>
#include <fstream>
#include <regex>

namespace {

using nlohmann::json;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class SimulatedTest : public test::ToolTest {
protected:
    /// A profile: the default machine with changes merged in.
    [[nodiscard]] std::string Profile(const std::string& name, const char* changes) const {
        json profile = json::parse(std::ifstream(DEFAULT_MACHINE_FILE));
        profile.merge_patch(json::parse(changes));
        return Write(name, profile.dump());
    }

    static std::size_t RowsIn(const std::string& list) {
        const std::regex row("(^|\n)(  |- )[A-Za-z][A-Za-z0-9_]+ ");
        return static_cast<std::size_t>(
            std::distance(std::sregex_iterator(list.begin(), list.end(), row), std::sregex_iterator()));
    }
};

TEST_F(SimulatedTest, ListsEveryExportAndMarksMissingOnes) {
    const test::Outcome own = Tool({"list"});
    EXPECT_EQ(own.status, 0);
    EXPECT_EQ(RowsIn(own.out), 114u);
    EXPECT_THAT(own.out, HasSubstr("\n  EC_ReadEcFwRev "));
    const test::Outcome other = WithDouble({"list"});
    EXPECT_EQ(RowsIn(other.out), 114u);
    EXPECT_THAT(other.out, AllOf(HasSubstr("\n- EC_ReadEcFwRev "),
                                 HasSubstr("\nnot exported by this library (marked with -): ")));
}

TEST_F(SimulatedTest, CallsTheLibraryOnTheDefaultMachine) {
    EXPECT_EQ(Tool({"call", "EC_ReadEcFwRev"}).out, "19276\n");
    EXPECT_EQ(Tool({"call", "GetDriverVersion"}).out, "66051\n");
    EXPECT_EQ(Tool({"call", "InitializeSondrel"}).out, "1\n");
    EXPECT_EQ(Tool({"call", "GetIoDllVersion", "--no-session"}).out, "65537\n");
    EXPECT_EQ(Tool({"call", "GetDriverVersion", "--no-session"}).out, "0\n");
}

TEST_F(SimulatedTest, ReportsTheDefaultMachineWithoutAFailure) {
    const test::Outcome run = Tool({"report", "--json", "--store", ":memory:"});
    ASSERT_EQ(run.status, 0) << run.err;
    const json report = json::parse(run.out);
    EXPECT_EQ(report["machine"], "default");
    EXPECT_EQ(report["readings"].size(), 114u);
    for (const json& object : report["readings"]) {
        EXPECT_THAT(object["status"], ::testing::AnyOf("ok", "absent", "not run")) << object;
    }
}

TEST_F(SimulatedTest, TracesToStandardErrorAndStoresTheMachinesState) {
    EXPECT_EQ(Tool({"call", "EC_ReadEcFwRev", "--store", ":memory:"}).err, "");
    const std::vector<std::string> call{"call", "EC_ReadEcFwRev", "--trace", "--store",
                                        Path("machine.sqlite")};
    const test::Outcome first = Tool(call);
    EXPECT_THAT(first.err, AllOf(StartsWith("debug: [RwEcCmd] cmd: 0xbb"), Not(HasSubstr("19276"))));
    const test::Outcome second = Tool(call);
    EXPECT_THAT(second.err, Not(HasSubstr("[RwEcCmd]")));
    for (const test::Outcome& run : {first, second}) {
        EXPECT_EQ(run.out, "19276\n");
    }
}

TEST_F(SimulatedTest, StartsAProfile) {
    const std::string profile =
        Profile("mine.json", R"({"name": "mine", "ec": {"revision": "GL", "chip_id": 1}})");
    EXPECT_EQ(Tool({"call", "EC_ReadEcFwRev", "--machine", profile, "--store", ":memory:"}).out, "18252\n");
    const test::Outcome report = Tool({"report", "--machine", profile, "--store", ":memory:"});
    EXPECT_THAT(report.out, AllOf(HasSubstr("mine.json (simulated)"), HasSubstr("18252 (GL)")));
    ExpectRefused(Tool({"report", "--machine", Profile("bad.json", R"({"ec": {"chip_id": 300}})")}),
                  "chip_id");
}

TEST_F(SimulatedTest, RunsTheExampleHost) {
    const test::Outcome run = Program(EXAMPLE_HOST, {});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(run.out, HasSubstr("tablet mode: 1\n"));
}

TEST_F(SimulatedTest, AHostOnADamagedStoreGetsFailuresInsteadOfAnEmptyMachine) {
    EXPECT_EQ(Program(EXAMPLE_HOST, {}).err, "");
    for (const auto& file : std::filesystem::directory_iterator(Path("state") + "/vesk-sondrel")) {
        if (file.is_regular_file()) {
            std::ofstream(file.path()) << "no database";
        }
    }
    const test::Outcome run = Program(EXAMPLE_HOST, {});
    EXPECT_THAT(run.err, AllOf(HasSubstr("file is not a database"),
                               HasSubstr("; its registry, files and firmware variables fail\n")));
    ExpectRefused(Tool({"report", "--machine", "default"}), "file is not a database");
}

} // namespace
