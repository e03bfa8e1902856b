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

namespace file_attribute {
inline constexpr std::uint32_t Directory = 0x10;     // FILE_ATTRIBUTE_DIRECTORY
inline constexpr std::uint32_t Invalid = 0xFFFFFFFF; // INVALID_FILE_ATTRIBUTES
} // namespace file_attribute

namespace move_file {
inline constexpr std::uint32_t ReplaceExisting = 1; // MOVEFILE_REPLACE_EXISTING
inline constexpr std::uint32_t WriteThrough = 8;    // MOVEFILE_WRITE_THROUGH
} // namespace move_file

/// What a text stream of this platform writes for a line end. A function, so that a recording of one platform can
/// answer it on another.
std::string_view TextLineEnd();

/// `file_attribute::Invalid` if the path does not exist.
std::uint32_t GetFileAttributesW(const char16_t* path);

/// ReadFile. `read` is 0 at the end of the file.
bool ReadFile(Handle file, std::span<std::byte> buffer, std::uint32_t& read);

/// WriteFile. `written` may be less than the size of `data`.
bool WriteFile(Handle file, std::span<const std::byte> data, std::uint32_t& written);

/// Cuts the file at the current position.
bool SetEndOfFile(Handle file);

/// Returns when the written data is on the disk.
bool FlushFileBuffers(Handle file);

/// MoveFileExW. Within a directory the rename is atomic.
bool MoveFileExW(const char16_t* existing, const char16_t* next, std::uint32_t flags);

bool DeleteFileW(const char16_t* path);

} // namespace platform
