// Under whom this process runs, on Windows.
#include "base/process_facts.h"
#include "base/reason_windows.h"

#include <windows.h>

namespace tool::host_system {
namespace {

struct Handle {
    HANDLE value = nullptr;

    Handle() = default;
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() {
        if (value != nullptr && value != INVALID_HANDLE_VALUE) {
            CloseHandle(value);
        }
    }
};

bool IsElevated() {
    Handle token;
    TOKEN_ELEVATION elevation{};
    DWORD size = 0;
    return OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token.value) &&
           GetTokenInformation(token.value, TokenElevation, &elevation, sizeof elevation, &size) &&
           elevation.TokenIsElevated != 0;
}

} // namespace

ProcessFacts FactsOfProcess() {
    wchar_t user[257] = L""; // the longest name
    DWORD length = 257;
    DWORD session = 0;
    const bool hasUser = GetUserNameW(user, &length) != FALSE;
    const bool hasSession = ProcessIdToSessionId(GetCurrentProcessId(), &session) != FALSE;
    return {.user = hasUser ? Utf8OfSystem(user) : "",
            .session = hasSession ? std::to_string(session) : "",
            .isInteractive = hasSession && session != 0, // services run in session 0
            .isElevated = IsElevated()};
}

bool IsWritableDirectory(const std::filesystem::path& directory) {
    // Opening a directory with the right to add files asks for the permission and adds nothing.
    Handle opened;
    opened.value =
        CreateFileW(directory.c_str(), FILE_ADD_FILE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    std::error_code problem;
    return opened.value != INVALID_HANDLE_VALUE && std::filesystem::is_directory(directory, problem);
}

} // namespace tool::host_system
