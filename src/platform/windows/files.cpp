#include "platform/files.h"

#include "platform/back_end.h"
#include "platform/windows/support/native.h"

namespace VESK_BACK_END {
namespace {

DWORD LowHalf(std::uint64_t number) {
    return static_cast<DWORD>(number);
}

DWORD HighHalf(std::uint64_t number) {
    return static_cast<DWORD>(number >> 32);
}

OVERLAPPED At(std::uint64_t offset) {
    OVERLAPPED place{};
    place.Offset = LowHalf(offset);
    place.OffsetHigh = HighHalf(offset);
    return place;
}

} // namespace

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

bool GetFileInformationByHandleEx(Handle file, FileAttributeTag& info) {
    FILE_ATTRIBUTE_TAG_INFO native{};
    const BOOL done =
        ::GetFileInformationByHandleEx(Native(file), FileAttributeTagInfo, &native, sizeof native);
    info = {native.FileAttributes, native.ReparseTag};
    return done != FALSE;
}

bool SetFileInformationByHandle(Handle file, std::uint64_t endOfFile) {
    FILE_END_OF_FILE_INFO native{};
    native.EndOfFile.QuadPart = static_cast<LONGLONG>(endOfFile);
    return ::SetFileInformationByHandle(Native(file), FileEndOfFileInfo, &native, sizeof native) != FALSE;
}

bool LockFileEx(Handle file, std::uint32_t flags, std::uint64_t offset, std::uint64_t size) {
    OVERLAPPED place = At(offset);
    return ::LockFileEx(Native(file), flags, 0, LowHalf(size), HighHalf(size), &place) != FALSE;
}

void UnlockFileEx(Handle file, std::uint64_t offset, std::uint64_t size) {
    OVERLAPPED place = At(offset);
    ::UnlockFileEx(Native(file), 0, LowHalf(size), HighHalf(size), &place);
}

bool FlushFileBuffers(Handle file) {
    return ::FlushFileBuffers(Native(file)) != FALSE;
}

} // namespace VESK_BACK_END
