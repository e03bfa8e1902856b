// The differences between two snapshots.
#pragma once

#include "readings/snapshot.h"
#include "readings/snapshot_changes.h"

#include <string>
#include <vector>

namespace tool {

/// Of one export.
struct Difference {
    std::string name;
    std::string group;
    /// Null if the snapshot does not have the export.
    const SnapshotReading* before = nullptr;
    const SnapshotReading* after = nullptr;
    /// Element by element if both have values; otherwise empty.
    std::vector<Change> changes;
};

struct Differences {
    std::vector<Difference> all;
    std::size_t compared = 0;
    std::size_t leftOut = 0;
};

/// Steady: leaves out what usually differs, such as temperatures, counters and times.
Differences Compare(const Snapshot& before, const Snapshot& after, bool steady);

} // namespace tool
