// What the two radio snapshots share: their sentinels, and the access to a field.
#pragma once

#include "frame/diagnostics.h"
#include "frame/memory_guard.h"
#include "platform/lock.h"

#include <cstdint>
#include <mutex>
#include <string>
#include <type_traits>
#include <utility>

namespace sondrel {

/// A field that no read has set.
inline constexpr std::int32_t RadioNotRead = -1000;
inline constexpr const char* RadioNotReadText = "init_string";

/// A field after a failed read.
inline constexpr std::int32_t RadioReadFailed = 0x7FFFFFFF;
inline constexpr const char* RadioReadFailedText = "error_string";

/// One field of a process-wide record. The record is read from the system first, unless a read has succeeded
/// before. Threads that call at the same time wait for one read and get the same complete record; after a
/// failed read each of them tries again.
template <class Record, class Field>
Field SnapshotField(platform::Lock& guard, Record& record, void (*read)(Record&), Field Record::*field,
                    const char* exportName) {
    const std::lock_guard lock(guard);
    if (record.valid == 0) {
        TraceLine([=] { return std::string("[RF] ") + exportName + " FLAG FALSE"; });
        Record next = record; // when memory runs out during the read, the record is unchanged
        read(next);
        record = std::move(next);
    }
    return record.*field;
}

/// The same for the exports: running out of memory is a failed read.
template <class Record, class Field>
Field SnapshotAnswer(platform::Lock& guard, Record& record, void (*read)(Record&), Field Record::*field,
                     const char* exportName) {
    const auto get = [&] {
        return SnapshotField(guard, record, read, field, exportName);
    };
    if constexpr (std::is_integral_v<Field>) {
        return OnOutOfMemory(RadioReadFailed, get);
    } else {
        return OnOutOfMemory(Field(RadioReadFailedText), get);
    }
}

} // namespace sondrel
