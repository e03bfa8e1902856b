// Which firmware generation an EC runs.
#pragma once

#include "machine/profile/sections/ec_profile.h"

#include <cstdint>

namespace machine {

/// The firmware generations. A chip that none of them was made for knows identity and tablet mode alone.
enum class Generation : std::uint8_t { None, Legacy, Banked, Windowed, Relocated };

Generation GenerationOf(const EcProfile& profile);

} // namespace machine
