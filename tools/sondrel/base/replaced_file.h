// A file that is replaced in one step.
#pragma once

#include <filesystem>
#include <string_view>

namespace tool {

/// Whoever reads the file, at any time, finds either what was there or all of the new text. A device or a pipe is
/// written to directly.
class ReplacedFile {
public:
    /// Throws Trouble for a file that cannot be written: before the work that its text may take.
    explicit ReplacedFile(std::filesystem::path file);
    ReplacedFile(const ReplacedFile&) = delete;
    ReplacedFile& operator=(const ReplacedFile&) = delete;
    /// Without a text the file stays as it was, and nothing else is left behind; after an interrupt too.
    ~ReplacedFile();

    /// Throws Trouble; then the file is as it was.
    void Put(std::string_view text);

private:
    std::filesystem::path m_file;
    std::filesystem::path m_draft; // beside the file; the file itself where it is written to directly
    std::filesystem::perms m_permissions = std::filesystem::perms::unknown;
};

} // namespace tool
