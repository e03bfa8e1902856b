// Files and directories. Open and close files with CreateFileW and CloseHandle.
#pragma once

#include "platform/device_io.h"
#include "platform/types.h"

#include <span>
#include <string_view>

namespace platform {

namespace access {
inline constexpr std::uint32_t GenericRead = 0x80000000;  // GENERIC_READ
inline constexpr std::uint32_t GenericWrite = 0x40000000; // GENERIC_WRITE
} // namespace access

inline constexpr std::uint32_t CreateAlways = 2; // CREATE_ALWAYS
inline constexpr std::uint32_t OpenAlways = 4;   // OPEN_ALWAYS

/// FILE_FLAG_OPEN_REPARSE_POINT: opens a link, not what it leads to. Ignored for a file that is no reparse point.
inline constexpr std::uint32_t OpenReparsePoint = 0x00200000;

namespace file_attribute {
inline constexpr std::uint32_t Directory = 0x10;     // FILE_ATTRIBUTE_DIRECTORY
inline constexpr std::uint32_t ReparsePoint = 0x400; // FILE_ATTRIBUTE_REPARSE_POINT
inline constexpr std::uint32_t Invalid = 0xFFFFFFFF; // INVALID_FILE_ATTRIBUTES
} // namespace file_attribute

namespace reparse_tag {
inline constexpr std::uint32_t NameSurrogate = 0x20000000; // the bit that IsReparseTagNameSurrogate tests
inline constexpr std::uint32_t SymbolicLink = 0xA000000C;  // IO_REPARSE_TAG_SYMLINK
} // namespace reparse_tag

namespace error {
inline constexpr SystemError InvalidFunction = 1; // a file system does not have the operation
inline constexpr SystemError LockViolation = 33;  // another process holds the lock
inline constexpr SystemError NotSupported = 50;   // a file system does not have the operation
} // namespace error

namespace lock_file {
inline constexpr std::uint32_t FailImmediately = 1; // LOCKFILE_FAIL_IMMEDIATELY
inline constexpr std::uint32_t Exclusive = 2;       // LOCKFILE_EXCLUSIVE_LOCK
} // namespace lock_file

/// FILE_ATTRIBUTE_TAG_INFO.
struct FileAttributeTag {
    std::uint32_t attributes = 0;
    std::uint32_t reparseTag = 0; // 0 without `file_attribute::ReparsePoint`
};

/// What a text stream of this platform writes for a line end. A function, so that a recording of one platform can
/// answer it on another.
std::string_view TextLineEnd();

/// `file_attribute::Invalid` if the path does not exist.
std::uint32_t GetFileAttributesW(const char16_t* path);

/// ReadFile. `read` is 0 at the end of the file.
bool ReadFile(Handle file, std::span<std::byte> buffer, std::uint32_t& read);

/// WriteFile. `written` may be less than the size of `data`.
bool WriteFile(Handle file, std::span<const std::byte> data, std::uint32_t& written);

/// GetFileInformationByHandleEx for FileAttributeTagInfo.
bool GetFileInformationByHandleEx(Handle file, FileAttributeTag& info);

/// SetFileInformationByHandle for FileEndOfFileInfo: the file ends at this offset.
bool SetFileInformationByHandle(Handle file, std::uint64_t endOfFile);

/// LockFileEx of `size` bytes from `offset`, which need not exist.
bool LockFileEx(Handle file, std::uint32_t flags, std::uint64_t offset, std::uint64_t size);

/// UnlockFileEx of the range that was locked.
void UnlockFileEx(Handle file, std::uint64_t offset, std::uint64_t size);

/// Returns when the written data is on the disk.
bool FlushFileBuffers(Handle file);

} // namespace platform
