// The sweep of one reading: every call and every allocation of a good run fails once, in each of its ways.
#pragma once

#include "rules.h"
#include "stage.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace sweep {

struct Subject {
    const exports::Export* row;
    HostCall call;
};

/// What the sweep has come to so far.
struct Tally {
    std::uint64_t callFaults = 0;
    std::uint64_t heapFaults = 0;
    /// By operation: how often one of its failures was injected, or it was called where it has none.
    std::array<std::uint64_t, observer::OperationCount> reached{};
    /// One line for each run that was not as it has to be.
    std::vector<std::string> complaints;
};

void SweepReading(Stage& stage, const Subject& subject, Tally& tally);

} // namespace sweep
