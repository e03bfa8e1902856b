// The library, loaded and used as a host does.
#pragma once

#include "terminal/system.h"

#include <filesystem>
#include <string_view>

namespace tool {

class Library {
public:
    /// The empty text stands for the library beside this program.
    explicit Library(std::string_view file);

    [[nodiscard]] const std::filesystem::path& File() const { return m_file; }

    [[nodiscard]] Address Find(std::string_view exportName) const;

private:
    std::filesystem::path m_file;
    SharedLibrary m_library;
};

/// The driver session: open from its making to its end, if the driver allows.
class Session {
public:
    explicit Session(const Library& library);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session();

    [[nodiscard]] bool IsOpen() const { return m_open; }

private:
    const Library& m_library;
    bool m_open = false;
};

} // namespace tool
