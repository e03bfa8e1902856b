// What differs between operating systems, besides terminals and interrupts: loading a library, the command line, files.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// A function of a loaded library, to be cast to its type before it is called.
using Address = void (*)();

/// A loaded library.
class SharedLibrary {
public:
    /// Loads the file by its full path, as a host does. Throws Error with the system's reason.
    explicit SharedLibrary(const std::filesystem::path& file);
    SharedLibrary(SharedLibrary&& other) noexcept;
    SharedLibrary(const SharedLibrary&) = delete;
    SharedLibrary& operator=(const SharedLibrary&) = delete;
    SharedLibrary& operator=(SharedLibrary&&) = delete;
    ~SharedLibrary();

    /// Null if the library has no such function.
    [[nodiscard]] Address Find(const char* name) const;

private:
    void* m_handle;
};

namespace host_system {

/// The file name of the library on this system.
std::string_view LibraryFileName();
/// The file name of the simulated machine, which is in the same directory as a library that reads it; empty on a
/// system without one.
std::string_view MachineFileName();
/// The answer to --trace where the tool cannot show debug and event lines.
std::string_view WhereTraceLinesAre();

/// The version of a file of this product; empty if it does not say.
std::string VersionOf(const std::filesystem::path& file);

/// The directory of this program.
std::filesystem::path OwnDirectory();

/// The command line without the program's name, in UTF-8.
std::vector<std::string> Arguments(int count, const char* const* arguments);

unsigned long ProcessId();

} // namespace host_system
} // namespace tool
