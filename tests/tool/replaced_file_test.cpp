// The files that the tool replaces.
#include "tool_run.h"

#include <filesystem>
#include <regex>

namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

class ReplacedFileTest : public test::ToolTest {
protected:
    ReplacedFileTest() { fs::create_directory(Path("here")); }

    /// Writes metrics with a log of the calls that concern files.
    [[nodiscard]] test::Outcome WithLog(const std::string& file, const std::string& failing = {}) const {
        return WithDouble({"metrics", "--output", file},
                          {std::string("LD_PRELOAD=") + FILE_CALLS, "FILE_CALLS_LOG=" + Path("log"),
                           "FILE_CALLS_FAIL=" + failing, "ASAN_OPTIONS=verify_asan_link_order=0"});
    }

    [[nodiscard]] std::ptrdiff_t FilesHere() const {
        return std::distance(fs::directory_iterator(Path("here")), {});
    }
};

TEST_F(ReplacedFileTest, KeepsLinksPermissionsAndDevices) {
    const std::string file = Write("here/sondrel.prom", "old");
    fs::permissions(file, fs::perms(0640));
    fs::create_symlink(file, Path("link.prom"));
    EXPECT_EQ(WithDouble({"metrics", "--output", Path("link.prom")}).status, 0);
    EXPECT_TRUE(fs::is_symlink(Path("link.prom")));
    EXPECT_THAT(ContentOf(file), HasSubstr("sondrel_session_open 1\n"));
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
    EXPECT_EQ(FilesHere(), 1);
    EXPECT_EQ(Program("/bin/sh", {"-c", "umask 027; exec \"$@\"", "sh", SONDREL_PROGRAM, "metrics",
                                  "--output", Path("here/new.prom"), "--library", DOUBLE_LIBRARY})
                  .status,
              0);
    EXPECT_EQ(fs::status(Path("here/new.prom")).permissions(), fs::perms(0640));
    EXPECT_EQ(WithDouble({"metrics", "--output", "/dev/null"}).status, 0);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

// The draft is private, its name differs each time, nothing that exists at that name is opened, and its content is on
// the disk before it gets the file's name.
TEST_F(ReplacedFileTest, TheDraftCannotBePrepared) {
    ASSERT_EQ(WithLog(Path("here/a.prom")).status, 0);
    const std::string log = ContentOf(Path("log"));
    const std::string open = "open (\\S+/here/\\.sondrel-[0-9a-f]{32}\\.new) exclusively 600 0\n";
    std::smatch names;
    ASSERT_TRUE(std::regex_match(
        log, names, std::regex(open + open + "flush  6[0-7]{2} [1-9]\\d*\nrename \\2 6[0-7]{2} [1-9]\\d*\n")))
        << log;
    EXPECT_NE(names[1], names[2]);
}

TEST_F(ReplacedFileTest, AFailedWriteNamesItsReasonAndLeavesTheOldFile) {
    const std::string file = Write("here/a.prom", "old");
    ExpectRefused(WithLog(file, "flush"), "here/a.prom: cannot be written: No space left on device");
    ExpectRefused(WithLog(file, "rename"), "here/a.prom: cannot be written: Permission denied");
    ExpectRefused(Program("/bin/sh", {"-c", "ulimit -f 4; exec \"$@\"", "sh", SONDREL_PROGRAM, "metrics",
                                      "--output", file, "--library", DOUBLE_LIBRARY}),
                  "here/a.prom: cannot be written: File too large");
    ExpectRefused(WithDouble({"metrics", "--output", Path("nowhere/a.prom")}),
                  "nowhere/a.prom: cannot be written: No such file or directory");
    fs::create_symlink("loop", Path("loop"));
    ExpectRefused(WithDouble({"metrics", "--output", Path("loop")}), "Too many levels of symbolic links");
    EXPECT_EQ(ContentOf(file), "old");
    EXPECT_EQ(FilesHere(), 1);
}

} // namespace
