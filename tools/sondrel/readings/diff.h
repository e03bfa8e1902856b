// The differences between two snapshots, by export.
#pragma once

#include "readings/snapshot.h"
#include "readings/snapshot_changes.h"

#include <string>
#include <vector>

namespace tool {

struct Difference {
    std::string name;
    std::string family;
    /// Null where the snapshot does not have the export at all.
    const KeptReading* before = nullptr;
    const KeptReading* after = nullptr;
    /// Element by element where both are values; empty where at least one is none.
    std::vector<Change> changes;
};

struct Differences {
    std::vector<Difference> all;
    std::size_t compared = 0;
    /// Left out because they always move.
    std::size_t leftOut = 0;
};

Differences Compare(const Snapshot& before, const Snapshot& after, bool steady);

std::string DifferencesAsText(const Options& options, const Snapshot& before, const Snapshot& after,
                              const Differences& differences);

} // namespace tool
