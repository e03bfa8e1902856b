// A file that does not exist before.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tool {

/// Only this user can open it until it is in place. It is removed if that does not happen.
class NewFile {
public:
    /// Creates it. If anything has that name, a link too, that is an error. Throws Error with the system's reason, as the
    /// other functions do.
    explicit NewFile(std::filesystem::path name);
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile();

    void Write(std::string_view text);

    /// Replaces the other file, whose permissions and, where that is allowed, owner it takes over. The content is on the disk
    /// before.
    void Replace(const std::filesystem::path& other);

private:
    std::filesystem::path m_name;
#ifdef _WIN32
    void* m_file;
#else
    int m_file;
#endif
    bool m_inPlace = false;
};

/// A name in no use that cannot be guessed: ".sondrel-", random digits and the ending.
std::string UnguessableName(std::string_view ending);

/// Writes to a device or a pipe. Throws Error with the system's reason.
void WriteDirectly(const std::filesystem::path& device, std::string_view text);

} // namespace tool
