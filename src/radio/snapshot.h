// What the two radio snapshots share: their sentinels, and how an export gets at a field.
#pragma once

#include "frame/diagnostics.h"

#include <cstdint>
#include <mutex>
#include <string>

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
        TraceLine(std::string("[RF] ") + exportName + " FLAG FALSE");
        read(record);
    }
    return record.*field;
}

} // namespace sondrel
