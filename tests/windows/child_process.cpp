#include "child_process.h"

#include "library.h"

#include <windows.h>

#include <stdexcept>

namespace test {

std::uint32_t CallInNewProcess(const std::string& name) {
    constexpr DWORD TimeLimit = 30'000;
    std::wstring command = L'"' + ProgramDirectory() + L"windows_tests.exe\" --call ";
    command.append(name.begin(), name.end());
    STARTUPINFOW start{.cb = sizeof start};
    PROCESS_INFORMATION process{};
    if (!::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                          &process)) {
        throw std::runtime_error("CreateProcessW failed with error " + std::to_string(::GetLastError()));
    }
    ::CloseHandle(process.hThread);
    const bool ended = ::WaitForSingleObject(process.hProcess, TimeLimit) == WAIT_OBJECT_0;
    DWORD result = 0;
    ::GetExitCodeProcess(process.hProcess, &result);
    if (!ended) {
        ::TerminateProcess(process.hProcess, 1);
    }
    ::CloseHandle(process.hProcess);
    if (!ended) {
        throw std::runtime_error("the process that calls " + name + " does not end");
    }
    return result;
}

} // namespace test
