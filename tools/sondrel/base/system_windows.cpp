// The tool on Windows.
#include "base/error.h"
#include "base/system.h"
#include "unicode/utf.h"

#include <windows.h>

#include <shellapi.h>

#include <array>
#include <memory>
#include <utility>

namespace tool {
namespace {

struct LocalFreer {
    void operator()(void* memory) const { LocalFree(memory); }
};

std::string Utf8OfSystem(const wchar_t* text) {
    const std::wstring_view wide(text);
    return unicode::Utf8FromWide(std::u16string(wide.begin(), wide.end()));
}

std::string ReasonOf(DWORD code) {
    std::array<wchar_t, 512> text{};
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        code, 0, text.data(), static_cast<DWORD>(text.size()), nullptr);
    std::string reason = length != 0 ? Utf8OfSystem(text.data()) : std::string();
    while (!reason.empty() && (reason.back() == '\n' || reason.back() == '\r' || reason.back() == ' ')) {
        reason.pop_back();
    }
    return (reason.empty() ? "error " : reason + " (error ") + std::to_string(code) +
           (reason.empty() ? "" : ")");
}

} // namespace

SharedLibrary::SharedLibrary(const std::filesystem::path& file) : m_handle(LoadLibraryW(file.c_str())) {
    if (m_handle == nullptr) {
        const DWORD code = GetLastError();
        throw Error("cannot load the library: " + Utf8OfSystem(file.c_str()) + ": " + ReasonOf(code));
    }
}

SharedLibrary::SharedLibrary(SharedLibrary&& other) noexcept
    : m_handle(std::exchange(other.m_handle, nullptr)) {}

SharedLibrary::~SharedLibrary() {
    if (m_handle != nullptr) {
        FreeLibrary(static_cast<HMODULE>(m_handle));
    }
}

Address SharedLibrary::Find(const char* name) const {
    return reinterpret_cast<Address>(GetProcAddress(static_cast<HMODULE>(m_handle), name));
}

namespace host_system {

std::string_view LibraryFileName() {
    return "VeskSondrel64.dll";
}

std::string_view MachineFileName() {
    return {};
}

std::string_view WhereTraceLinesAre() {
    return "--trace is for the simulated machine; here an ETW consumer of provider VeskWinDllLogger "
           "{C72E452E-6078-4AC3-82F2-C0282F99A573} shows the lines";
}

std::filesystem::path OwnDirectory() {
    std::wstring file(32768, L'\0'); // the longest possible path
    file.resize(GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size())));
    return std::filesystem::path(file).parent_path();
}

std::vector<std::string> Arguments(int, const char* const*) {
    // The arguments of main have been converted to the machine's code page, which loses characters.
    int count = 0;
    const std::unique_ptr<wchar_t*[], LocalFreer> wide(CommandLineToArgvW(GetCommandLineW(), &count));
    std::vector<std::string> arguments;
    for (int i = 1; wide && i < count; ++i) {
        arguments.push_back(Utf8OfSystem(wide[static_cast<std::size_t>(i)]));
    }
    return arguments;
}

unsigned long ProcessId() {
    return GetCurrentProcessId();
}

void FlushToDisk(const std::filesystem::path& file) {
    const HANDLE opened = CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened != INVALID_HANDLE_VALUE) {
        FlushFileBuffers(opened);
        CloseHandle(opened);
    }
}

} // namespace host_system
} // namespace tool
