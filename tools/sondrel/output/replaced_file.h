// A file that is replaced in one step.
#pragma once

#include <filesystem>
#include <string_view>

namespace tool {

/// At any time a reader finds either the old content or all of the new one. A device or a pipe is written to directly.
class ReplacedFile {
public:
    /// Throws Error if the file cannot be written: before the work that its content may take.
    explicit ReplacedFile(std::filesystem::path file);
    ReplacedFile(const ReplacedFile&) = delete;
    ReplacedFile& operator=(const ReplacedFile&) = delete;
    /// A file that was not written stays as it was, and nothing else is left, after an interrupt too.
    ~ReplacedFile();

    /// Throws Error; then the file is as it was.
    void Write(std::string_view text);

private:
    std::filesystem::path m_file;
    std::filesystem::path m_draft; // in the file's directory; the file itself if that is written to directly
    std::filesystem::perms m_permissions = std::filesystem::perms::unknown;
};

} // namespace tool
