#include "tool_run.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace test {
namespace {

namespace fs = std::filesystem;

std::string Quoted(const std::string& word) {
    std::string text = "'";
    for (const char character : word) {
        text += character == '\'' ? "'\\''" : std::string(1, character);
    }
    return text + "'";
}

} // namespace

ToolTest::ToolTest() {
    std::string name = (fs::temp_directory_path() / "sondrel-tool-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("cannot create a directory for the test");
    }
    m_directory = name;
}

ToolTest::~ToolTest() {
    std::error_code problem;
    fs::remove_all(m_directory, problem);
}

Outcome ToolTest::Program(const std::string& program, const std::vector<std::string>& arguments,
                          const std::vector<std::string>& settings) const {
    std::string line = "cd / && env XDG_STATE_HOME=" + Quoted(Path("state"));
    for (const std::string& setting : settings) {
        line += " " + Quoted(setting);
    }
    line += " " + Quoted(program);
    for (const std::string& argument : arguments) {
        line += " " + Quoted(argument);
    }
    line += " </dev/null >" + Quoted(Path("out")) + " 2>" + Quoted(Path("err"));
    const int status = std::system(line.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ContentOf(Path("out")), ContentOf(Path("err"))};
}

Outcome ToolTest::Tool(const std::vector<std::string>& arguments) const {
    return Program(SONDREL_PROGRAM, arguments);
}

Outcome ToolTest::WithDouble(std::vector<std::string> arguments,
                             const std::vector<std::string>& settings) const {
    arguments.insert(arguments.end(), {"--library", DOUBLE_LIBRARY});
    return Program(SONDREL_PROGRAM, arguments, settings);
}

std::string ToolTest::Write(const std::string& name, const std::string& text) const {
    std::ofstream(m_directory / name, std::ios::binary) << text;
    return Path(name);
}

std::string ToolTest::ContentOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void ToolTest::ExpectRefused(const Outcome& run, const std::string& reason) {
    EXPECT_EQ(run.status, 2) << reason;
    EXPECT_EQ(run.out, "") << reason;
    const std::string session = "open\nclose\n"; // the double's log
    const std::string message = run.err.substr(run.err.starts_with(session) ? session.size() : 0);
    EXPECT_THAT(message, ::testing::AllOf(::testing::StartsWith("sondrel: "), ::testing::HasSubstr(reason)));
    EXPECT_EQ(std::ranges::count(message, '\n'), 1) << message;
}

} // namespace test
