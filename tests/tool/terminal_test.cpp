// The tool on a terminal: colour, width, progress, and interrupts.
#include "base/text.h"

#include "terminal_run.h"
#include "tool_run.h"

#include <sys/wait.h>

#include <csignal>
#include <filesystem>

namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

const std::string Enters = "\x1b[?1049h";
const std::string CtrlC = "\x03";

class TerminalTest : public test::ToolTest {
protected:
    [[nodiscard]] std::vector<std::string> DoubleLine(std::vector<std::string> arguments) const {
        arguments.insert(arguments.end(), {"--library", DOUBLE_LIBRARY});
        return arguments;
    }

    /// The whole output of the tool on a terminal.
    [[nodiscard]] std::string OnTerminal(const std::vector<std::string>& arguments, unsigned short columns,
                                         std::vector<std::string> settings = {}) const {
        settings.push_back("XDG_STATE_HOME=" + Path("state"));
        test::TerminalRun run(SONDREL_PROGRAM, arguments, settings, columns);
        EXPECT_EQ(run.End(), 0) << run.Output();
        return run.Output();
    }

    static void ExpectInterrupted(test::TerminalRun& run) {
        const int status = run.End();
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT) << status << run.Output();
        EXPECT_NE(run.Modes().c_lflag & ECHO, 0u);
        EXPECT_NE(run.Modes().c_lflag & ICANON, 0u);
    }
};

TEST(Columns, CountsTheWidthOfCharacters) {
    EXPECT_EQ(tool::Columns("°C Ä"), 4u);
    EXPECT_EQ(tool::Columns("中文\uFF21"), 6u);
    EXPECT_EQ(tool::Columns("\U0001F600"), 2u);
    EXPECT_EQ(tool::Columns("e\u0301\u200B한"), 3u);
    EXPECT_EQ(tool::Shortened("中文中文", 6), "中...");
    EXPECT_EQ(tool::Shortened("中文中文", 8), "中文中文");
    EXPECT_EQ(tool::Shortened("abcdef", 2), "..");
    EXPECT_THAT(tool::Wrapped("one two 中文中 x", 6), ::testing::ElementsAre("one", "two", "中文中", "x"));
    EXPECT_THAT(tool::Wrapped("abcdefgh", 3), ::testing::ElementsAre("abc", "def", "gh"));
    EXPECT_THAT(tool::Wrapped("中", 1), ::testing::ElementsAre("中"));
}

TEST_F(TerminalTest, ColoursOnlyOnATerminal) {
    const std::vector<std::string> report = DoubleLine({"report"});
    EXPECT_THAT(OnTerminal(report, 120),
                AllOf(HasSubstr("\x1b[1mTemperatures and fans\x1b[0m"),
                      HasSubstr("\x1b[1;31mfailed (2147483647)"), HasSubstr("52\x1b[2m °C\x1b[0m")));
    const std::vector<std::string> trace{"trace", "EC_ReadEcChipId", "--store", ":memory:"};
    EXPECT_THAT(OnTerminal(trace, 120), HasSubstr("\x1b[1mEC     bb 10 -> 00\x1b[0m"));
    EXPECT_THAT(OnTerminal(trace, 120, {"NO_COLOR=1"}), Not(HasSubstr("\x1b[")));
    EXPECT_THAT(OnTerminal(trace, 120, {"TERM=dumb"}), Not(HasSubstr("\x1b[")));
    EXPECT_THAT(OnTerminal({"--colour", "never", "trace", "EC_ReadEcChipId"}, 120), Not(HasSubstr("\x1b[")));
    EXPECT_THAT(WithDouble({"report"}).out, Not(HasSubstr("\x1b[")));
    EXPECT_THAT(Tool({"--color", "always", "trace", "EC_ReadEcChipId"}).out, HasSubstr("\x1b[2m"));
}

TEST_F(TerminalTest, FitsEveryWidth) {
    const auto expectFits = [&](const std::vector<std::string>& arguments, unsigned short columns) {
        for (const std::string& line : test::TerminalRun::VisibleLines(OnTerminal(arguments, columns))) {
            const bool name = line.starts_with("  ") && line.find(' ', 2) == std::string::npos;
            EXPECT_TRUE(name || tool::Columns(line) <= columns) << columns << ": " << line;
        }
    };
    expectFits(DoubleLine({"report"}), 40);
    expectFits({"report"}, 30);
    expectFits({"report"}, 77);
    EXPECT_THAT(OnTerminal({"report"}, 60),
                HasSubstr("  Thermal_Read_Cpu_Temperature\r\n    53\x1b[2m °C\x1b[0m\r\n"));
}

TEST_F(TerminalTest, WatchDrawsWithinTheTerminalAndRestoresIt) {
    test::TerminalRun run(SONDREL_PROGRAM,
                          DoubleLine({"watch", "--interval", "0.05", "--csv", Path("samples.csv"),
                                      "Thermal_Read_Cpu_Temperature", "Thermal_Read_UpCpu_Temperature",
                                      "Battery_Read_CellVoltage", "CPU_ReadCPUUsage"}),
                          {}, 100);
    ASSERT_TRUE(run.ReadUntil("sample 3")) << run.Output();
    EXPECT_EQ(run.Modes().c_lflag & ECHO, 0u);
    EXPECT_THAT(run.Output(),
                AllOf(HasSubstr(Enters), HasSubstr("52 °C"), HasSubstr("30.0 %"), HasSubstr("▅▅"),
                      HasSubstr("Battery_Read_CellVoltage[1]"), HasSubstr("failed")));
    const std::size_t before = run.Output().size();
    run.Resize(44, 5);
    ASSERT_TRUE(run.ReadUntil(" more in a taller window", before));
    const std::size_t resized = run.Output().size();
    ASSERT_TRUE(run.ReadUntil(" more in a taller window", resized));
    for (const std::string& line : test::TerminalRun::VisibleLines(run.Output().substr(resized))) {
        EXPECT_LE(tool::Columns(line), 44u) << line;
    }
    run.Signal(SIGTSTP);
    ASSERT_TRUE(run.Stopped());
    EXPECT_NE(run.Modes().c_lflag & ECHO, 0u);
    const std::size_t stopped = run.Output().size();
    run.Signal(SIGCONT);
    ASSERT_TRUE(run.ReadUntil(Enters, stopped));
    run.Type("abc" + CtrlC);
    ExpectInterrupted(run);
    // The last screen stays, with every reading, and a summary follows.
    const std::string left = run.Output().substr(run.Output().rfind("\x1b[?7h\x1b[?25h\x1b[?1049l"));
    EXPECT_THAT(left, AllOf(HasSubstr("CPU_ReadCPUUsage  "), HasSubstr("  failures\r\n"),
                            Not(HasSubstr("taller")), EndsWith("close\r\n")));
    EXPECT_THAT(ContentOf(Path("samples.csv")), EndsWith(",52,,4150,,,,0.3\r\n"));
}

TEST_F(TerminalTest, AnInterruptedPageKeepsTheOldFile) {
    const std::string file = Write("page.html", "before");
    test::TerminalRun run(SONDREL_PROGRAM, DoubleLine({"report", "--html", file, "--interval", "60"}), {},
                          80);
    ASSERT_TRUE(run.ReadUntil("sample 1 of 20 ... ")) << run.Output();
    run.Type(CtrlC);
    ExpectInterrupted(run);
    EXPECT_EQ(ContentOf(file), "before");
    const std::filesystem::directory_iterator files(Path(""));
    EXPECT_EQ(std::distance(begin(files), end(files)), 1); // no draft
}

TEST_F(TerminalTest, ALongCallShowsProgressAndCanBeInterrupted) {
    const std::vector<std::string> call = DoubleLine({"call", "WMIGetModelName"});
    test::TerminalRun run(SONDREL_PROGRAM, call, {"DOUBLE_HANGS=1"}, 80);
    ASSERT_TRUE(run.ReadUntil("calling WMIGetModelName ... 0 s")) << run.Output();
    run.Type(CtrlC); // the call never returns: the end is forced
    ExpectInterrupted(run);
    const test::Outcome piped = WithDouble({"call", "AppList_OpenWindows"});
    EXPECT_EQ(piped.err, "");
}

} // namespace
