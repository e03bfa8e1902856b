// What the two radio snapshots share: their sentinels, and how an export gets at a field.
#pragma once

#include "frame/diagnostics.h"
#include "frame/memory_guard.h"

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

/// Gives one field of a process-wide record, which is read from the system first unless a read has gone
/// through before. Threads that come at once wait for the one read and get the same complete record; after a
/// failed read each of them tries again.
template <class Record, class Field>
Field SnapshotField(std::mutex& guard, Record& record, void (*read)(Record&), Field Record::*field,
                    const char* exportName) {
    const std::lock_guard lock(guard);
    if (record.valid == 0) {
        TraceMade([=] { return std::string("[RF] ") + exportName + " FLAG FALSE"; });
        Record next = record; // a read that runs out of memory halfway leaves the record whole
        read(next);
        record = std::move(next);
    }
    return record.*field;
}

/// The same for the exports: without memory it is a failed read.
template <class Record, class Field>
Field SnapshotAnswer(std::mutex& guard, Record& record, void (*read)(Record&), Field Record::*field,
                     const char* exportName) {
    const auto get = [&] {
        return SnapshotField(guard, record, read, field, exportName);
    };
    if constexpr (std::is_integral_v<Field>) {
        return OrWithoutMemory(RadioReadFailed, get);
    } else {
        return OrWithoutMemory(Field(RadioReadFailedText), get);
    }
}

} // namespace sondrel
