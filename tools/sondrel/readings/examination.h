// Whether each precondition is met, and if not, why.
#pragma once

#include "causes/reading_state.h"
#include "readings/preconditions.h"
#include "readings/reading.h"

#include <optional>
#include <string>
#include <vector>

namespace tool {

struct PreconditionFinding {
    const Precondition* precondition = nullptr;
    /// Nothing: it could not be checked on this host, which is no fault of the machine.
    std::optional<bool> isMet;
    ReadingState state = ReadingState::Ok;
    /// What is there: a version, a user, a path. Can be empty.
    std::string value;
    std::optional<Cause> cause;
};

/// In the order of the table. Each reading is called once, in one session; no setter is called, and nothing that moves
/// the firmware's event log.
std::vector<PreconditionFinding> ExaminePreconditions(const Host& host, const ReadOptions& options);

} // namespace tool
