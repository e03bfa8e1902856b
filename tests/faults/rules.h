// What an export may return after a failure.
#pragma once

#include "exports/answer.h"
#include "observer/operations.h"

#include <string>
#include <string_view>

namespace sweep {

/// What failed: a boundary call in one of its ways, or the heap.
struct Fault {
    observer::Operation operation{};
    observer::Failure kind = observer::Failure::None;
    bool andLater = false;
    bool heap = false;
    /// The machine itself lacks values, which no failure can remove.
    bool lacking = false;
};

/// The size of the export's buffer in characters, the terminator included.
std::size_t BufferSizeOf(const exports::Export& row);

/// Why the export must not return this answer after this failure; empty if it may. `profile` is the text of the
/// machine's profile.
std::string Objection(const exports::Export& row, const Fault& fault, const std::string& answer,
                      const std::string& good, std::string_view profile);

/// Whether the next calls may return this answer too: a radio record that was read without a list, the failure value
/// that a later read without a result leaves, or an EC identity with a byte that the driver refused, which reads as 0.
bool MayStay(const exports::Export& row, const Fault& fault, const std::string& answer,
             const std::string& good);

} // namespace sweep
