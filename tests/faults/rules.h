// What an export may answer after a failure.
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
    /// The machine has values missing of its own, which no failure can take away.
    bool lacking = false;
};

/// Room for the export's text in characters, the terminator counted, as the header states it.
std::size_t RoomOf(const exports::Export& row);

/// Why this answer may not come after this failure; empty when it may. `profile` is the machine's own text.
std::string Objection(const exports::Export& row, const Fault& fault, const std::string& answer,
                      const std::string& good, std::string_view profile);

/// Whether what was answered may stand for the next calls too: a record of the radios that was read with a list
/// missing, the failure value where a later read finds nothing for it, or an identity of which the driver refused a byte, since a refused request reads as 0.
bool MayStay(const exports::Export& row, const Fault& fault, const std::string& answer,
             const std::string& good);

} // namespace sweep
