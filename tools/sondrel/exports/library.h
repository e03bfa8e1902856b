// The library, loaded as a host loads it.
#pragma once

#include "base/system.h"

#include <filesystem>
#include <string_view>

namespace tool {

class Library {
public:
    /// An empty name means the library of this program's kit or build.
    explicit Library(std::string_view file);

    [[nodiscard]] const std::filesystem::path& File() const { return m_file; }

    [[nodiscard]] Address Find(std::string_view exportName) const;

private:
    std::filesystem::path m_file;
    SharedLibrary m_library;
};

/// The driver session: open during its lifetime, if the driver allows it.
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
