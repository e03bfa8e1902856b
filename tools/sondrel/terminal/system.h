// What differs between systems: loading a library, the command line, files. Terminals and interrupts have files of
// their own. Everything else is portable.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// A routine of a loaded library, to be cast to its own type before it is called.
using Address = void (*)();

/// A loaded library, unloaded with its owner.
class SharedLibrary {
public:
    /// Loads the file as a host does, by its full path. Throws Trouble with the system's reason.
    explicit SharedLibrary(const std::filesystem::path& file);
    SharedLibrary(SharedLibrary&& other) noexcept;
    SharedLibrary(const SharedLibrary&) = delete;
    SharedLibrary& operator=(const SharedLibrary&) = delete;
    SharedLibrary& operator=(SharedLibrary&&) = delete;
    ~SharedLibrary();

    /// Null when the library has no such name.
    [[nodiscard]] Address Find(const char* name) const;

private:
    void* m_handle;
};

namespace host_system {

/// What the library's file is called here.
std::string_view LibraryFileName();
/// The simulated machine's library, which stands beside a library that reads it; empty where there is none.
std::string_view MachineFileName();
/// What --trace says where debug and event lines are not the tool's to show.
std::string_view WhereTraceLinesAre();

/// Where this program's own file stands.
std::filesystem::path OwnDirectory();

/// The command line without the program's name, in UTF-8.
std::vector<std::string> Arguments(int count, const char* const* arguments);

/// Of this process.
unsigned long ProcessNumber();

/// Has the system write to the disk what it holds of a file, as far as it lets itself be told.
void FlushToDisk(const std::filesystem::path& file);

} // namespace host_system
} // namespace tool
