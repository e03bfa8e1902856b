// The library, loaded as a host loads it.
#pragma once

#include "base/system.h"

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace tool {

class Library {
public:
    /// On Windows the observed library is another file, in the folder "observed".
    enum class Form : std::uint8_t { Usual, Observed };

    /// An empty name means the library of this program's kit or build, in that form if there are two.
    explicit Library(std::string_view file, Form form = Form::Usual);

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
