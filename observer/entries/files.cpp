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

bool GetFileInformationByHandleEx(Handle file, FileAttributeTag& info) {
    return Observe<Operation::GetFileInformationByHandleEx>(back_end::GetFileInformationByHandleEx,
                                                            In("file", file), Out("info", info));
}

bool SetFileInformationByHandle(Handle file, std::uint64_t endOfFile) {
    return Observe<Operation::SetFileInformationByHandle>(back_end::SetFileInformationByHandle,
                                                          In("file", file), In("end", endOfFile));
}

bool LockFileEx(Handle file, std::uint32_t flags, std::uint64_t offset, std::uint64_t size) {
    return Observe<Operation::LockFileEx>(back_end::LockFileEx, In("file", file), Hex("flags", flags),
                                          In("offset", offset), In("size", size));
}

void UnlockFileEx(Handle file, std::uint64_t offset, std::uint64_t size) {
    Observe<Operation::UnlockFileEx>(back_end::UnlockFileEx, In("file", file), In("offset", offset),
                                     In("size", size));
}

bool FlushFileBuffers(Handle file) {
    return Observe<Operation::FlushFileBuffers>(back_end::FlushFileBuffers, In("file", file));
}

} // namespace platform
