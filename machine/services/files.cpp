#include "platform/files.h"

#include "machine/machine.h"
#include "machine/models/storage/file_system.h"
#include "machine/services/last_error.h"
#include "platform/back_end.h"

namespace VESK_BACK_END {
namespace {

std::uintptr_t NumberOf(Handle file) {
    return static_cast<std::uintptr_t>(file);
}

/// One operation on the machine's files, which sets the last error.
template <class Operation>
bool OnFiles(Operation operation) {
    const auto machine = machine::Current();
    return machine::Succeed(machine::OnDisk([&] { return operation(*machine->storage.files); }));
}

} // namespace

std::string_view TextLineEnd() {
    return "\n";
}

std::uint32_t GetFileAttributesW(const char16_t* path) {
    std::uint32_t attributes = file_attribute::Invalid;
    OnFiles([&](machine::FileSystem& files) {
        SystemError problem = error::Success;
        attributes = files.Attributes(path, problem).value_or(file_attribute::Invalid);
        return problem;
    });
    return attributes;
}

bool ReadFile(Handle file, std::span<std::byte> buffer, std::uint32_t& read) {
    read = 0;
    return OnFiles([&](machine::FileSystem& files) { return files.Read(NumberOf(file), buffer, read); });
}

bool WriteFile(Handle file, std::span<const std::byte> data, std::uint32_t& written) {
    written = 0;
    return OnFiles([&](machine::FileSystem& files) { return files.Write(NumberOf(file), data, written); });
}

bool GetFileInformationByHandleEx(Handle file, FileAttributeTag& info) {
    return OnFiles([&](const machine::FileSystem& files) { return files.ReadTag(NumberOf(file), info); });
}

bool SetFileInformationByHandle(Handle file, std::uint64_t endOfFile) {
    return OnFiles([&](machine::FileSystem& files) { return files.SetEnd(NumberOf(file), endOfFile); });
}

/// The machine has exclusive locks that are not waited for.
bool LockFileEx(Handle file, std::uint32_t flags, std::uint64_t offset, std::uint64_t size) {
    if (flags != (lock_file::FailImmediately | lock_file::Exclusive)) {
        return machine::Succeed(error::NotSupported);
    }
    return OnFiles([&](machine::FileSystem& files) { return files.Lock(NumberOf(file), offset, size); });
}

void UnlockFileEx(Handle file, std::uint64_t offset, std::uint64_t size) {
    OnFiles([&](machine::FileSystem& files) { return files.Unlock(NumberOf(file), offset, size); });
}

bool FlushFileBuffers(Handle file) {
    return OnFiles([&](machine::FileSystem& files) { return files.Flush(NumberOf(file)); });
}

} // namespace VESK_BACK_END
