// The tool on Windows.
#include "base/error.h"
#include "base/reason_windows.h"
#include "base/system.h"

#include <windows.h>

#include <shellapi.h>

#include <memory>
#include <utility>

namespace tool {
namespace {

struct LocalFreer {
    void operator()(void* memory) const { LocalFree(memory); }
};

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

std::string VersionOf(const std::filesystem::path& file) {
    std::vector<std::byte> resource(GetFileVersionInfoSizeW(file.c_str(), nullptr));
    void* found = nullptr;
    UINT length = 0;
    if (resource.empty() ||
        !GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(resource.size()), resource.data()) ||
        !VerQueryValueW(resource.data(), L"\\", &found, &length)) {
        return {};
    }
    const auto& version = *static_cast<const VS_FIXEDFILEINFO*>(found);
    return std::to_string(HIWORD(version.dwFileVersionMS)) + '.' +
           std::to_string(LOWORD(version.dwFileVersionMS)) + '.' +
           std::to_string(HIWORD(version.dwFileVersionLS)) + '.' +
           std::to_string(LOWORD(version.dwFileVersionLS));
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

} // namespace host_system
} // namespace tool
