// The tool and the example host on the simulated machine.
#include "tool_run.h"

#include <nlohmann/json.hpp>

#include <fstream>
#include <regex>

namespace {

using nlohmann::json;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class SimulatedTest : public test::ToolTest {
protected:
    /// A profile's file: the default machine with changes merged in.
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

TEST_F(SimulatedTest, ListsEveryExportAndMarksWhatIsMissing) {
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

TEST_F(SimulatedTest, ReportsAMachineWithoutAFaultInItsBuffers) {
    const test::Outcome run = Tool({"report", "--json", "--store", ":memory:"});
    ASSERT_EQ(run.status, 0) << run.err;
    const json report = json::parse(run.out);
    EXPECT_EQ(report["machine"], "default");
    EXPECT_EQ(report["exports"].size(), 114u);
    std::size_t answered = 0;
    for (const json& object : report["exports"]) {
        EXPECT_NE(object["status"], "faulty") << object;
        EXPECT_NE(object["status"], "untouched") << object;
        answered += object["status"] == "ok" ? 1 : 0;
    }
    EXPECT_GE(answered, 8u); // the nine oldest exports but ShutdownSondrel
}

TEST_F(SimulatedTest, TracesToStandardErrorOnly) {
    const std::vector<std::string> quiet{"call", "EC_ReadEcFwRev", "--store", ":memory:"};
    std::vector<std::string> traced = quiet;
    traced.emplace_back("--trace");
    EXPECT_THAT(Tool(quiet).err, IsEmpty());
    const test::Outcome run = Tool(traced);
    EXPECT_EQ(run.out, "19276\n");
    EXPECT_THAT(run.err, AllOf(StartsWith("debug: [RwEcCmd] cmd: 0xbb"), Not(HasSubstr("19276"))));
}

TEST_F(SimulatedTest, KeepsTheMachinesStateInTheStore) {
    const std::vector<std::string> call{"call", "EC_ReadEcFwRev", "--trace", "--store",
                                        Path("machine.sqlite")};
    EXPECT_THAT(Tool(call).err, HasSubstr("[RwEcCmd]"));
    const test::Outcome kept = Tool(call);
    EXPECT_EQ(kept.out, "19276\n");
    EXPECT_THAT(kept.err, Not(HasSubstr("[RwEcCmd]")));
}

TEST_F(SimulatedTest, StartsAProfileOfTheUsers) {
    const std::string profile =
        Profile("mine.json", R"({"name": "mine", "ec": {"revision": "GL", "chip_id": 1}})");
    EXPECT_EQ(Tool({"call", "EC_ReadEcFwRev", "--machine", profile, "--store", ":memory:"}).out, "18252\n");
    const test::Outcome report = Tool({"report", "--machine", profile, "--store", ":memory:"});
    EXPECT_THAT(report.out, AllOf(HasSubstr("mine.json (simulated)"), HasSubstr("18252 (GL)")));
}

TEST_F(SimulatedTest, PassesOnTheMachinesOwnErrors) {
    const auto refused = [&](const std::vector<std::string>& options, const std::string& problem) {
        std::vector<std::string> line{"report"};
        line.insert(line.end(), options.begin(), options.end());
        const test::Outcome run = Tool(line);
        EXPECT_EQ(run.status, 2);
        EXPECT_THAT(run.out, IsEmpty());
        EXPECT_THAT(run.err, AllOf(StartsWith("sondrel: "), HasSubstr(problem)));
    };
    refused({"--machine", "nowhere"}, "nowhere");
    refused({"--machine", Profile("bad.json", R"({"ec": {"chip_id": 300}})")}, "chip_id");
    refused({"--machine", Write("worse.json", "{")}, "worse.json");
    refused({"--store", Write("damaged.sqlite", std::string(5000, 'x'))}, "damaged.sqlite");
}

TEST_F(SimulatedTest, RunsTheExampleHost) {
    const test::Outcome run = Program(EXAMPLE_HOST, {});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(run.out, HasSubstr("tablet mode: 1\n"));
}

} // namespace
