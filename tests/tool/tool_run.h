// The built tool, run as a process.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace test {

struct Outcome {
    int status = -1;
    std::string out;
    std::string err;
};

/// Each test has a directory, which also has the simulated machine's state.
class ToolTest : public ::testing::Test {
public:
    ToolTest();
    ToolTest(const ToolTest&) = delete;
    ToolTest& operator=(const ToolTest&) = delete;
    ~ToolTest() override;

protected:
    /// Runs the tool against the native library.
    [[nodiscard]] Outcome Tool(const std::vector<std::string>& arguments) const;
    /// Runs the tool against the double. `settings` are added to its environment.
    [[nodiscard]] Outcome WithDouble(std::vector<std::string> arguments,
                                     const std::vector<std::string>& settings = {}) const;
    [[nodiscard]] Outcome Program(const std::string& program, const std::vector<std::string>& arguments,
                                  const std::vector<std::string>& settings = {}) const;

    /// Writes a file and returns its path.
    [[nodiscard]] std::string Write(const std::string& name, const std::string& text) const;

    [[nodiscard]] std::string Path(const std::string& name) const { return (m_directory / name).string(); }

    [[nodiscard]] static std::string ContentOf(const std::filesystem::path& file);

    /// The tool has printed one line with the reason, and nothing else.
    static void ExpectRefused(const Outcome& run, const std::string& reason);

private:
    std::filesystem::path m_directory;
};

} // namespace test
