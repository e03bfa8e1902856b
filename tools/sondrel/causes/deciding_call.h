// Which of the boundary calls of a reading decided its state.
//
// Failures that a normal course has (codes.h) decide nothing when the next step succeeds. What is left is weighed: the
// first call that failed decides, or else the first one that returned nothing where there could have been something.
#pragma once

#include "causes/boundary_call.h"
#include "causes/reading_state.h"

#include <optional>
#include <span>

namespace tool {

struct Decision {
    ReadingState state = ReadingState::Failed;
    Cause cause;
    /// Something failed. Otherwise something was not there, which can be an answer too.
    bool isFailure = false;
    /// It was not there as usual.
    bool isExpected = false;
    /// The library does not see this failure: what it returned is not to be relied on.
    bool isUnnoticed = false;
};

/// Nothing if every call did what it was asked for.
std::optional<Decision> Decide(std::span<const BoundaryCall> calls);

/// The last call whose answer the library may not have understood; nothing if it asked for nothing.
std::optional<Cause> LastAnswer(std::span<const BoundaryCall> calls);

/// Whether a device was asked for this reading, besides for what identifies the EC, and answered.
bool DeviceAnswered(std::span<const BoundaryCall> calls);

/// Whether an operation is among the calls whose name begins so.
bool Calls(std::span<const BoundaryCall> calls, std::string_view operations);

} // namespace tool
