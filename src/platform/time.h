// Waiting.
#pragma once

#include <cstdint>

namespace platform {

void Sleep(std::uint32_t milliseconds);

} // namespace platform
