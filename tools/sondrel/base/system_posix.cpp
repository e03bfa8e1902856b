// The tool on systems with dlopen.
#include "base/error.h"
#include "base/input_file.h"
#include "base/system.h"

#include <dlfcn.h>
#include <unistd.h>

#include <utility>

namespace tool {

SharedLibrary::SharedLibrary(const std::filesystem::path& file)
    : m_handle(dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL)) {
    if (m_handle == nullptr) {
        const char* const reason = dlerror(); // names the file
        throw Error("cannot load the library: " + std::string(reason != nullptr ? reason : file.c_str()));
    }
}

SharedLibrary::SharedLibrary(SharedLibrary&& other) noexcept
    : m_handle(std::exchange(other.m_handle, nullptr)) {}

SharedLibrary::~SharedLibrary() {
    if (m_handle != nullptr) {
        dlclose(m_handle);
    }
}

Address SharedLibrary::Find(const char* name) const {
    return reinterpret_cast<Address>(dlsym(m_handle, name));
}

namespace host_system {

std::string_view LibraryFileName() {
    return "libVeskSondrel64.so";
}

std::string_view MachineFileName() {
    return "libVeskMachine.so";
}

std::string_view WhereTraceLinesAre() {
    return "--trace shows the lines of a simulated machine, and this library has none";
}

std::string VersionOf(const std::filesystem::path& file) {
    constexpr std::string_view Mark = "@(#)VeskSondrel64 "; // as what(1) finds it
    const std::string content = ReadFile(file.string());
    const std::size_t at = content.find(Mark);
    return at == std::string::npos ? std::string() : std::string(content.c_str() + at + Mark.size());
}

std::filesystem::path OwnDirectory() {
    return std::filesystem::read_symlink("/proc/self/exe").parent_path();
}

std::vector<std::string> Arguments(int count, const char* const* arguments) {
    return count > 0 ? std::vector<std::string>(arguments + 1, arguments + count)
                     : std::vector<std::string>();
}

unsigned long ProcessId() {
    return static_cast<unsigned long>(getpid());
}

} // namespace host_system
} // namespace tool
