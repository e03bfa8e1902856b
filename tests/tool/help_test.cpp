// What the help promises.
#include "commands/help.h"
#include "tool_run.h"

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class HelpTest : public test::ToolTest {};

TEST_F(HelpTest, ExamplesShowWhatTheyPromise) {
    const std::string directory = std::filesystem::path(SONDREL_PROGRAM).parent_path().string();
    for (const tool::Example& example : tool::AllExamples()) {
        const std::string line = std::string(example.line).append(example.ending);
        SCOPED_TRACE(line);
        const test::Outcome run = Program(
            "/bin/sh", {"-c", "cd \"$1\" && PATH=\"$2:$PATH\" && " + line, "sh", Path(""), directory});
        EXPECT_EQ(run.status, example.command == "diff" ? 1 : 0) << run.err;
        EXPECT_THAT(run.out + run.err, HasSubstr(std::string(example.shows)));
        EXPECT_EQ(run.err.find("sondrel:"), std::string::npos) << run.err;
    }
}

TEST_F(HelpTest, EachCommandHasItsOwnExamplesAndTheSharedOptions) {
    const test::Outcome all = Tool({"--help"});
    EXPECT_THAT(all.out,
                AllOf(HasSubstr("completion"), HasSubstr("--store FILE"), HasSubstr("auto|always|never\n")));
    EXPECT_THAT(Tool({"call", "--help"}).out,
                AllOf(HasSubstr("sondrel call CPU_ReadCpuId 0x80000002"), HasSubstr("--store FILE"),
                      Not(HasSubstr("sondrel report"))));
    EXPECT_THAT(Tool({"machine", "check", "--help"}).out,
                AllOf(HasSubstr("sondrel machine check my-notebook.json"), Not(HasSubstr("--store"))));
    for (const char character : all.out) {
        EXPECT_TRUE(character == '\n' || static_cast<unsigned char>(character) >= ' ');
    }
}

TEST_F(HelpTest, VersionIsThatOfToolAndLibrary) {
    const std::string version = SONDREL_VERSION;
    EXPECT_THAT(Tool({"--version"}).out, StartsWith("sondrel " + version + "\nlibrary " + version + "  /"));
    EXPECT_THAT(WithDouble({"--version"}).out, HasSubstr("\nlibrary of an unknown version  /"));
    EXPECT_THAT(Tool({"--version", "--library", "/nowhere.so"}).out,
                HasSubstr("\nlibrary there is no library /nowhere.so"));
}

} // namespace
