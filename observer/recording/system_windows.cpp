#include "observer/recording/system.h"

#include "unicode/utf.h"

#include <windows.h>

#include <sddl.h>

#include <algorithm>
#include <cstdio>
#include <cwchar>
#include <stdexcept>

namespace observer::system {
namespace {

std::wstring Wide(std::string_view text) {
    const std::u16string wide = unicode::WideFromUtf8(text);
    return {wide.begin(), wide.end()};
}

std::string Narrow(std::wstring_view text) {
    return unicode::Utf8FromWide(std::u16string(text.begin(), text.end()));
}

/// Of the account that this process works as.
struct Account {
    TOKEN_USER user;
    BYTE identifier[SECURITY_MAX_SID_SIZE];
};

bool ReadAccount(HANDLE token, Account& account) {
    DWORD size = 0;
    return ::GetTokenInformation(token, TokenUser, &account, sizeof account, &size) != 0;
}

class ProcessToken {
public:
    ProcessToken() { ::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &m_token); }

    ProcessToken(const ProcessToken&) = delete;
    ProcessToken& operator=(const ProcessToken&) = delete;

    ~ProcessToken() {
        if (m_token != nullptr) {
            ::CloseHandle(m_token);
        }
    }

    [[nodiscard]] HANDLE Get() const { return m_token; }

private:
    HANDLE m_token = nullptr;
};

/// This account alone, whatever the folder would allow.
class PrivateSecurity {
public:
    PrivateSecurity() {
        Account account{};
        wchar_t* identifier = nullptr;
        if (ReadAccount(ProcessToken().Get(), account) &&
            ::ConvertSidToStringSidW(account.user.User.Sid, &identifier) != 0) {
            const std::wstring list = L"D:P(A;;FA;;;" + std::wstring(identifier) + L")";
            ::LocalFree(identifier);
            ::ConvertStringSecurityDescriptorToSecurityDescriptorW(
                list.c_str(), SDDL_REVISION_1, &m_attributes.lpSecurityDescriptor, nullptr);
        }
    }

    PrivateSecurity(const PrivateSecurity&) = delete;
    PrivateSecurity& operator=(const PrivateSecurity&) = delete;

    ~PrivateSecurity() { ::LocalFree(m_attributes.lpSecurityDescriptor); }

    SECURITY_ATTRIBUTES* Get() { return &m_attributes; }

    [[nodiscard]] bool IsValid() const { return m_attributes.lpSecurityDescriptor != nullptr; }

private:
    SECURITY_ATTRIBUTES m_attributes{sizeof m_attributes, nullptr, FALSE};
};

HANDLE FileOf(std::intptr_t file) {
    return reinterpret_cast<HANDLE>(file);
}

std::string KindOfUser(HANDLE token, bool elevated) {
    Account account{};
    if (!ReadAccount(token, account)) {
        return "user";
    }
    if (::IsWellKnownSid(account.user.User.Sid, WinLocalSystemSid) != 0) {
        return "system";
    }
    const bool service = ::IsWellKnownSid(account.user.User.Sid, WinLocalServiceSid) != 0 ||
                         ::IsWellKnownSid(account.user.User.Sid, WinNetworkServiceSid) != 0;
    return service ? "service" : elevated ? "administrator" : "user";
}

} // namespace

std::string Environment(const char* name) {
    std::wstring value(32768, L'\0'); // the longest that there is
    value.resize(
        ::GetEnvironmentVariableW(Wide(name).c_str(), value.data(), static_cast<DWORD>(value.size())));
    return Narrow(value);
}

NewFile::~NewFile() {
    if (FileOf(m_file) != INVALID_HANDLE_VALUE) {
        ::CloseHandle(FileOf(m_file));
    }
}

bool NewFile::Create(const std::string& path) {
    PrivateSecurity security;
    if (!security.IsValid()) {
        return false;
    }
    m_file = reinterpret_cast<std::intptr_t>(::CreateFileW(Wide(path).c_str(), FILE_APPEND_DATA,
                                                           FILE_SHARE_READ, security.Get(), CREATE_NEW,
                                                           FILE_ATTRIBUTE_NORMAL, nullptr));
    return FileOf(m_file) != INVALID_HANDLE_VALUE;
}

bool NewFile::Append(std::string_view text) noexcept {
    DWORD written = 0;
    return ::WriteFile(FileOf(m_file), text.data(), static_cast<DWORD>(text.size()), &written, nullptr) !=
               0 &&
           written == text.size();
}

std::optional<std::string> Content(const std::string& path, std::size_t largest, std::string& problem) {
    const HANDLE file = ::CreateFileW(Wide(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        problem = LastProblem();
        return std::nullopt;
    }
    LARGE_INTEGER size{};
    std::string text;
    if (::GetFileType(file) != FILE_TYPE_DISK || ::GetFileSizeEx(file, &size) == 0) {
        problem = "this is no file";
    } else if (size.QuadPart < 0 || static_cast<std::uint64_t>(size.QuadPart) > largest) {
        problem = "the file is too large";
    } else {
        text.resize(static_cast<std::size_t>(size.QuadPart));
        DWORD count = 0;
        if (::ReadFile(file, text.data(), static_cast<DWORD>(text.size()), &count, nullptr) == 0) {
            problem = LastProblem();
        }
        text.resize(count);
    }
    ::CloseHandle(file);
    return problem.empty() ? std::optional(std::move(text)) : std::nullopt;
}

std::string LastProblem() {
    const DWORD error = ::GetLastError();
    return (error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS ? "the file exists, error "
            : error == ERROR_FILE_NOT_FOUND                             ? "there is no such file, error "
                                                                        : "error ") +
           std::to_string(error);
}

Host CurrentHost() {
    Host host{.process = ::GetCurrentProcessId()};
    std::wstring program(32768, L'\0');
    program.resize(::GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
    host.program = Narrow(program);
    DWORD session = 0;
    ::ProcessIdToSessionId(::GetCurrentProcessId(), &session);
    host.session = session;
    const ProcessToken token;
    TOKEN_ELEVATION elevation{};
    DWORD size = 0;
    host.elevated =
        ::GetTokenInformation(token.Get(), TokenElevation, &elevation, sizeof elevation, &size) != 0 &&
        elevation.TokenIsElevated != 0;
    host.user = KindOfUser(token.Get(), host.elevated);
    return host;
}

std::string Build() {
#if defined(_MSC_VER) && !defined(__clang__)
    return "windows, Visual C++ " + std::to_string(_MSC_FULL_VER);
#else
    return "windows, compiler " __VERSION__;
#endif
}

void StartMachine(const std::string& name, const std::string&) {
    throw std::runtime_error("\"" + name + "\" is no recording (its name would end in .rec)");
}

void Complain(const std::string& line) noexcept {
    std::fprintf(stderr, "%s\n", line.c_str());
    ::OutputDebugStringA((line + '\n').c_str());
}

} // namespace observer::system
