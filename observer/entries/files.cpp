#include "platform/files.h"

#include "observer/observe.h"

namespace platform {

using namespace observer::decorators;

std::string_view TextLineEnd() {
    return Observe<Operation::TextLineEnd>(back_end::TextLineEnd);
}

std::uint32_t GetFileAttributesW(const char16_t* path) {
    return Observe<Operation::GetFileAttributesW>(back_end::GetFileAttributesW, In("path", path));
}

bool ReadFile(Handle file, std::span<std::byte> buffer, std::uint32_t& read) {
    return Observe<Operation::ReadFile>(back_end::ReadFile, In("file", file), OutBytes("data", buffer, read),
                                        OutCount("read", read));
}

bool WriteFile(Handle file, std::span<const std::byte> data, std::uint32_t& written) {
    return Observe<Operation::WriteFile>(back_end::WriteFile, In("file", file), InBytes("data", data),
                                         OutCount("written", written));
}

bool SetEndOfFile(Handle file) {
    return Observe<Operation::SetEndOfFile>(back_end::SetEndOfFile, In("file", file));
}

bool FlushFileBuffers(Handle file) {
    return Observe<Operation::FlushFileBuffers>(back_end::FlushFileBuffers, In("file", file));
}

bool MoveFileExW(const char16_t* existing, const char16_t* next, std::uint32_t flags) {
    return Observe<Operation::MoveFileExW>(back_end::MoveFileExW, In("existing", existing), In("next", next),
                                           Hex("flags", flags));
}

bool DeleteFileW(const char16_t* path) {
    return Observe<Operation::DeleteFileW>(back_end::DeleteFileW, In("path", path));
}

} // namespace platform
