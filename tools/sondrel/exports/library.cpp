#include "exports/library.h"

#include "base/error.h"
#include "base/text.h"

#include <cstdint>
#include <string>
#include <system_error>

namespace tool {
namespace {

namespace fs = std::filesystem;

/// In the directory of the tool, or in lib of an installed kit, which has the tool in bin.
fs::path OwnLibrary() {
    const fs::path directory = host_system::OwnDirectory();
    const fs::path sameDirectory = directory / host_system::LibraryFileName();
    const fs::path installed = directory.parent_path() / "lib" / host_system::LibraryFileName();
    std::error_code problem;
    return !fs::exists(sameDirectory, problem) && fs::exists(installed, problem) ? installed : sameDirectory;
}

fs::path FullPathOf(std::string_view file, Library::Form form) {
    fs::path path = file.empty() ? OwnLibrary() : fs::absolute(PathOf(file));
    std::error_code problem;
    const fs::path observed = path.parent_path() / "observed" / path.filename();
    if (file.empty() && form == Library::Form::Observed && fs::exists(observed, problem)) {
        path = observed;
    }
    if (!fs::exists(path, problem)) {
        throw Error("there is no library " + Utf8Of(path) +
                    (file.empty() ? "; --library FILE names another" : ""));
    }
    return path;
}

} // namespace

Library::Library(std::string_view file, Form form) : m_file(FullPathOf(file, form)), m_library(m_file) {}

Address Library::Find(std::string_view exportName) const {
    return m_library.Find(std::string(exportName).c_str());
}

Session::Session(const Library& library) : m_library(library) {
    if (const Address open = library.Find("InitializeSondrel"); open != nullptr) {
        m_open = reinterpret_cast<std::int32_t (*)()>(open)() != 0;
    }
}

Session::~Session() {
    if (!m_open) {
        return;
    }
    if (const Address close = m_library.Find("ShutdownSondrel"); close != nullptr) {
        close();
    }
}

} // namespace tool
