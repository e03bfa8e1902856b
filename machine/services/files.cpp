#include "platform/files.h"

#include "machine/machine.h"
#include "machine/models/storage/file_system.h"
#include "machine/models/storage/store.h"
#include "machine/text/wide_text.h"
#include "observer/gate.h"
#include "platform/back_end.h"

namespace VESK_BACK_END {

using machine::Call;
using machine::Current;
using machine::Operation;
using machine::Utf8FromWide;

namespace {

std::uintptr_t NumberOf(Handle file) {
    return static_cast<std::uintptr_t>(file);
}

/// One operation that works or fails with the last error set.
template <class Body>
bool Perform(Call& call, Body body) {
    SystemError problem = call.RefusalCode();
    if (!call.Refused()) {
        try {
            problem = body();
        } catch (const machine::StoreError&) {
            problem = error::GenFailure;
        }
    }
    machine::SetLastError(problem);
    return call.Answered(problem == error::Success);
}

} // namespace

std::string_view TextLineEnd() {
    return "\n";
}

std::uint32_t GetFileAttributesW(const char16_t* path) {
    Call call(Operation::GetFileAttributesW);
    call.Note([&] { return Utf8FromWide(path); });
    std::uint32_t attributes = file_attribute::Invalid;
    SystemError problem = call.RefusalCode();
    try {
        if (!call.Refused()) {
            attributes = Current().files.Attributes(path, problem).value_or(file_attribute::Invalid);
        }
    } catch (const machine::StoreError&) {
        problem = error::GenFailure;
    }
    machine::SetLastError(problem);
    return call.Answered(attributes);
}

bool ReadFile(Handle file, std::span<std::byte> buffer, std::uint32_t& read) {
    Call call(Operation::ReadFile);
    read = 0;
    const std::size_t room = call.Shortened() ? 1 : call.Emptied() ? 0 : buffer.size();
    return Perform(call, [&] { return Current().files.Read(NumberOf(file), buffer.first(room), read); });
}

bool WriteFile(Handle file, std::span<const std::byte> data, std::uint32_t& written) {
    Call call(Operation::WriteFile);
    call.Note([&] { return std::to_string(data.size()) + " bytes"; });
    written = 0;
    const std::size_t taken = call.Shortened() ? data.size() / 2 : data.size();
    return Perform(call, [&] { return Current().files.Write(NumberOf(file), data.first(taken), written); });
}

bool SetEndOfFile(Handle file) {
    Call call(Operation::SetEndOfFile);
    return Perform(call, [&] { return Current().files.CutAtPosition(NumberOf(file)); });
}

bool FlushFileBuffers(Handle file) {
    Call call(Operation::FlushFileBuffers);
    return Perform(call, [&] { return Current().files.Flush(NumberOf(file)); });
}

bool MoveFileExW(const char16_t* existing, const char16_t* next, std::uint32_t flags) {
    Call call(Operation::MoveFileExW);
    call.Note([&] {
        return Utf8FromWide(existing) + " to " + Utf8FromWide(next) + " flags " + std::to_string(flags);
    });
    const bool replace = (flags & move_file::ReplaceExisting) != 0;
    return Perform(call, [&] { return Current().files.Move(existing, next, replace); });
}

bool DeleteFileW(const char16_t* path) {
    Call call(Operation::DeleteFileW);
    call.Note([&] { return Utf8FromWide(path); });
    return Perform(call, [&] { return Current().files.Delete(path); });
}

} // namespace VESK_BACK_END
