// Readings of the running system that go straight to a platform service.
#pragma once

#include <string>

namespace sondrel {

/// The master volume in per cent as decimal text, "0" while muted, the empty text when it cannot be read. Enters
/// the multithreaded apartment for itself.
std::u16string getvolume();

} // namespace sondrel
