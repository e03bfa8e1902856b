// Readings of the running system that need one platform service only.
#pragma once

#include <string>

namespace sondrel {

/// The master volume in per cent as a decimal string; "0" while muted, empty on failure. The call enters and
/// leaves the multithreaded apartment.
std::u16string getvolume();

} // namespace sondrel
