// A boundary call in words.
#pragma once

#include "causes/boundary_call.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tool {

/// What the call of this place was made on, with what that was opened on: "EcFwRev in HKLM\SOFTWARE\Vesk".
std::string SubjectOf(std::span<const BoundaryCall> calls, std::size_t place);

/// The code of a failed call; nothing for an operation that fails without one.
std::optional<std::uint32_t> CodeOf(const BoundaryCall& call);

/// "0x80041003", or "5" for the system's small codes.
std::string CodeText(std::uint32_t code);

/// The EC command that the call sends: its bytes and the status it was answered with.
struct EcCommand {
    std::string bytes; // "bb 03"
    std::uint32_t status = 0;
};

/// Nothing for any other call.
std::optional<EcCommand> EcCommandOf(const BoundaryCall& call);

} // namespace tool
