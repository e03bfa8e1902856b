#include "platform/files.h"

#include "platform/back_end.h"
#include "platform/windows/support/native.h"

namespace VESK_BACK_END {

std::string_view TextLineEnd() {
    return "\r\n";
}

std::uint32_t GetFileAttributesW(const char16_t* path) {
    return ::GetFileAttributesW(Wide(path));
}

bool ReadFile(Handle file, std::span<std::byte> buffer, std::uint32_t& read) {
    DWORD count = 0;
    const BOOL done =
        ::ReadFile(Native(file), buffer.data(), static_cast<DWORD>(buffer.size()), &count, nullptr);
    read = count;
    return done != FALSE;
}

bool WriteFile(Handle file, std::span<const std::byte> data, std::uint32_t& written) {
    DWORD count = 0;
    const BOOL done =
        ::WriteFile(Native(file), data.data(), static_cast<DWORD>(data.size()), &count, nullptr);
    written = count;
    return done != FALSE;
}

bool SetEndOfFile(Handle file) {
    return ::SetEndOfFile(Native(file)) != FALSE;
}

bool FlushFileBuffers(Handle file) {
    return ::FlushFileBuffers(Native(file)) != FALSE;
}

bool MoveFileExW(const char16_t* existing, const char16_t* next, std::uint32_t flags) {
    return ::MoveFileExW(Wide(existing), Wide(next), flags) != FALSE;
}

bool DeleteFileW(const char16_t* path) {
    return ::DeleteFileW(Wide(path)) != FALSE;
}

} // namespace VESK_BACK_END
