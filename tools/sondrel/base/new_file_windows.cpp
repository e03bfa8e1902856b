// New files on Windows.
#include "base/error.h"
#include "base/new_file.h"
#include "base/reason_windows.h"

#include <windows.h>

#include <algorithm>
#include <utility>

namespace tool {
namespace {

[[noreturn]] void ThrowReason(DWORD code) {
    throw Error(ReasonOf(code));
}

struct OpenedFile {
    HANDLE handle;

    ~OpenedFile() { CloseHandle(handle); }
};

void WriteAll(HANDLE file, std::string_view text) {
    constexpr std::size_t Piece = std::size_t{1} << 20;
    while (!text.empty()) {
        DWORD written = 0;
        if (!WriteFile(file, text.data(), static_cast<DWORD>(std::min(text.size(), Piece)), &written,
                       nullptr)) {
            ThrowReason(GetLastError());
        }
        text.remove_prefix(written);
    }
}

} // namespace

// While it is open nothing else can open it; afterwards it has the rights that its directory passes on.
NewFile::NewFile(std::filesystem::path name)
    : m_name(std::move(name)),
      m_file(CreateFileW(m_name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                         FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr)) {
    if (m_file == INVALID_HANDLE_VALUE) {
        ThrowReason(GetLastError());
    }
}

NewFile::~NewFile() {
    if (m_file != INVALID_HANDLE_VALUE) {
        CloseHandle(m_file);
    }
    if (!m_inPlace) {
        DeleteFileW(m_name.c_str());
    }
}

// NOLINTNEXTLINE(readability-make-member-function-const): it changes the file.
void NewFile::Write(std::string_view text) {
    WriteAll(m_file, text);
}

void NewFile::Replace(const std::filesystem::path& other) {
    if (!FlushFileBuffers(m_file)) {
        ThrowReason(GetLastError());
    }
    CloseHandle(std::exchange(m_file, INVALID_HANDLE_VALUE));
    if (!MoveFileExW(m_name.c_str(), other.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
        ThrowReason(GetLastError());
    }
    m_inPlace = true;
}

void WriteDirectly(const std::filesystem::path& device, std::string_view text) {
    const OpenedFile file{CreateFileW(device.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)};
    if (file.handle == INVALID_HANDLE_VALUE) {
        ThrowReason(GetLastError());
    }
    WriteAll(file.handle, text);
}

} // namespace tool
