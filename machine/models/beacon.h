// The information elements of an access point's beacon, in the terms of IEEE 802.11.
#pragma once

#include "machine/profile/sections/radio_profile.h"

#include <cstddef>
#include <vector>

namespace machine {

/// The elements in the order in which a beacon carries them.
std::vector<std::byte> EncodeElements(const Beacon& beacon);

} // namespace machine
