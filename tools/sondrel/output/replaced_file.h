// A file that is replaced in one step.
#pragma once

#include <filesystem>
#include <string_view>

namespace tool {

/// At any time a reader finds either the old content or all of the new one. A device or a pipe is written to directly,
/// and "-" is standard output.
class ReplacedFile {
public:
    /// Throws Error if the file cannot be written: before the work that its content may take.
    explicit ReplacedFile(std::filesystem::path file);

    /// Throws Error; then the file is as it was, and nothing else is left, after an interrupt too.
    void Write(std::string_view text) const;

private:
    std::filesystem::path m_file;
    bool m_isStandardOutput;
    bool m_replaced = true; // or written to directly
};

} // namespace tool
