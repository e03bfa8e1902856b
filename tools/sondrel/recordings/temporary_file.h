// A file that is gone at the end.
#pragma once

#include "base/input_file.h"
#include "base/text.h"

#include <filesystem>
#include <string>
#include <system_error>

namespace tool {

class TemporaryFile {
public:
    /// An absolute name. What an earlier run has left there is removed.
    explicit TemporaryFile(const std::string& file) : m_file(std::filesystem::absolute(PathOf(file))) {
        Remove();
    }

    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    ~TemporaryFile() { Remove(); }

    [[nodiscard]] std::string Name() const { return Utf8Of(m_file); }

    /// Its complete lines; nothing if there is no such file. It is removed.
    std::string TakeLines() {
        std::error_code problem;
        std::string text = std::filesystem::exists(m_file, problem) ? ReadFile(Name()) : std::string();
        text.resize(text.rfind('\n') + 1);
        Remove();
        return text;
    }

private:
    void Remove() const {
        std::error_code ignored;
        std::filesystem::remove(m_file, ignored);
    }

    const std::filesystem::path m_file;
};

} // namespace tool
