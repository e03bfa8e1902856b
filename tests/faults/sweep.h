// The sweep of one reading: every call and every allocation of a good run fails once, in each of its ways.
#pragma once

#include "planted.h"
#include "rules.h"
#include "stage.h"

#include <array>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace sweep {

struct Subject {
    const exports::Export* row;
    HostCall call;
};

/// What the sweep has come to so far.
struct Tally {
    /// Of the failures that there are, the first one of so many is made.
    std::uint64_t oneIn = 1;
    std::uint64_t planned = 0;
    std::uint64_t callFaults = 0;
    std::uint64_t heapFaults = 0;
    /// Of the failed calls, those that look like an ordinary answer.
    std::uint64_t unseen = 0;
    /// By operation: how often one of its failures was injected, or it was called where it has none.
    std::array<std::uint64_t, observer::OperationCount> reached{};
    /// One line for each run that was not as it has to be.
    std::vector<std::string> complaints;
};

void SweepReading(Stage& stage, const Subject& subject, Tally& tally);

/// Whether the sweep finds each planted fault, and none in the sound reading. `callsFail`: boundary calls fail on this
/// stage; where only memory does, the faults that need a failed call count as sound.
bool FindsPlanted(Stage& stage, bool callsFail, std::ostream& out);

} // namespace sweep
