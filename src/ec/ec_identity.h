// Which embedded controller the machine has: the two numbers that select its register map.
#pragma once

#include <cstdint>

namespace sondrel {

// Each number comes from the registry. While it is not stored there it is read from the EC and then stored. On
// failure, out of memory included, the result is EcReadFailed and nothing is stored.

/// The firmware revision code: two ASCII letters, the first in bits 15-8.
std::uint32_t ReadEcFirmwareRevision() noexcept;

/// The chip id, 0 to 255.
std::uint32_t ReadEcChipId() noexcept;

} // namespace sondrel
