// sondrel.exe with the real DLL: what differs from the native tool, which has the tests of everything else.
#include "library.h"

#include <nlohmann/json.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

struct Outcome {
    DWORD status = STILL_ACTIVE;
    std::string out;
    std::string err;
};

/// A file that a process that is started writes its output to. Each has a name of its own: a service that the
/// process wakes inherits the handle, and keeps the file open for as long as it runs.
class OutputFile {
public:
    explicit OutputFile(const wchar_t* name)
        : m_path(fs::temp_directory_path() /
                 (name + std::to_wstring(::GetCurrentProcessId()) + L'-' + std::to_wstring(++Count))) {
        SECURITY_ATTRIBUTES inherited{.nLength = sizeof inherited, .bInheritHandle = TRUE};
        m_handle = ::CreateFileW(m_path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS,
                                 FILE_ATTRIBUTE_NORMAL, nullptr);
        if (m_handle == INVALID_HANDLE_VALUE) {
            throw std::runtime_error("the output file cannot be made: error " +
                                     std::to_string(::GetLastError()));
        }
    }

    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    ~OutputFile() {
        ::CloseHandle(m_handle);
        std::error_code problem;
        fs::remove(m_path, problem);
    }

    [[nodiscard]] HANDLE Handle() const { return m_handle; }

    [[nodiscard]] std::string Content() const {
        std::ifstream in(m_path, std::ios::binary);
        std::string text{std::istreambuf_iterator<char>(in), {}};
        std::erase(text, '\r');
        return text;
    }

private:
    static inline unsigned Count = 0;

    fs::path m_path;
    HANDLE m_handle;
};

/// Runs a program that stands beside the tests.
Outcome Program(const std::wstring& name, const std::wstring& arguments) {
    constexpr DWORD TimeLimit = 60'000;
    const OutputFile out(L"sondrel-out-");
    const OutputFile err(L"sondrel-err-");
    std::wstring command = L"\"" + test::ProgramDirectory() + name + L"\" " + arguments;
    STARTUPINFOW start{.cb = sizeof start, .dwFlags = STARTF_USESTDHANDLES};
    start.hStdOutput = out.Handle();
    start.hStdError = err.Handle();
    PROCESS_INFORMATION process{};
    if (!::CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                          &process)) {
        throw std::runtime_error("the program does not start: error " + std::to_string(::GetLastError()));
    }
    ::CloseHandle(process.hThread);
    Outcome outcome;
    if (::WaitForSingleObject(process.hProcess, TimeLimit) != WAIT_OBJECT_0) {
        ::TerminateProcess(process.hProcess, 1);
    }
    ::GetExitCodeProcess(process.hProcess, &outcome.status);
    ::CloseHandle(process.hProcess);
    outcome.out = out.Content();
    outcome.err = err.Content();
    return outcome;
}

Outcome Tool(const std::wstring& arguments) {
    return Program(L"sondrel.exe", arguments);
}

TEST(ToolTest, ReportsEveryExportOfTheDll) {
    const Outcome run = Tool(L"report --json");
    ASSERT_EQ(run.status, 0u) << run.err;
    const auto report = nlohmann::json::parse(run.out, nullptr, false);
    ASSERT_FALSE(report.is_discarded()) << run.out;
    EXPECT_EQ(report.at("simulated"), false);
    EXPECT_EQ(report.at("exports").size(), 114u);
    for (const auto& object : report.at("exports")) {
        EXPECT_NE(object.at("status"), "faulty") << object;
        if (object.at("name") == "GetIoDllVersion") {
            EXPECT_EQ(object.at("value"), 65537);
        }
    }
}

TEST(ToolTest, TakesNamesBeyondTheCodePage) {
    const fs::path directory = fs::temp_directory_path() / L"Ä \u4E2D\U0001F600";
    fs::create_directories(directory);
    const fs::path copy = directory / L"copy.dll";
    fs::copy_file(test::ProgramDirectory() + L"VeskSondrel64.dll", copy,
                  fs::copy_options::overwrite_existing);
    const Outcome run = Tool(L"call GetIoDllVersion --library \"" + copy.wstring() + L"\"");
    EXPECT_EQ(run.status, 0u) << run.err;
    EXPECT_EQ(run.out, "65537\n");
    fs::remove_all(directory);
    const Outcome gone = Tool(L"list --library \"" + copy.wstring() + L"\"");
    EXPECT_EQ(gone.status, 2u);
    EXPECT_THAT(gone.err, HasSubstr("Ä \u4E2D\U0001F600\\copy.dll"));
}

TEST(ToolTest, SaysThatTheMachineIsTheRealOne) {
    const auto refused = [](const wchar_t* arguments, const char* problem) {
        const Outcome run = Tool(arguments);
        EXPECT_EQ(run.status, 2u);
        EXPECT_THAT(run.out, IsEmpty());
        EXPECT_THAT(run.err, AllOf(StartsWith("sondrel: "), HasSubstr(problem)));
        EXPECT_EQ(std::ranges::count(run.err, '\n'), 1);
    };
    refused(L"report --trace",
            "an ETW consumer of provider VeskWinDllLogger {C72E452E-6078-4AC3-82F2-C0282F99A573}");
    refused(L"report --machine default", "--machine is for the simulated machine");
    refused(L"report --store :memory:", "--store is for the simulated machine");
    refused(L"list --library none.dll", "there is no library");
    refused(L"list --library C:\\windows\\win.ini", "cannot load the library: C:\\windows\\win.ini");
}

TEST(ToolTest, RunsTheExampleHost) {
    const Outcome run = Program(L"example_host.exe", L"");
    EXPECT_EQ(run.status, 0u); // it has found the DLL beside it
    EXPECT_THAT(run.out, ::testing::AnyOf(HasSubstr("no driver session\n"), HasSubstr("tablet mode: ")));
}

} // namespace
