// The platform's split 64-bit times.
#pragma once

#include "platform/back_end.h"

#include <windows.h>

#include <cstdint>

namespace VESK_BACK_END {

/// A FILETIME in units of 100 ns.
inline std::uint64_t Ticks(const FILETIME& time) {
    return std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
}

} // namespace VESK_BACK_END
