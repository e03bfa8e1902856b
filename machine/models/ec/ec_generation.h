// Which firmware generation an EC runs.
#pragma once

#include "machine/profile/sections/ec_profile.h"

#include <cstdint>

namespace machine {

/// The firmware generations, in the order in which the tables have them. A chip without one answers for
/// its identity and tablet mode only.
enum class Generation : std::uint8_t { None, Legacy, Banked, Windowed, Relocated };

Generation GenerationOf(const EcProfile& profile);

} // namespace machine
