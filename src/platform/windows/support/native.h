// Conversions between the boundary's types and those of Windows' headers.
#pragma once

#include "platform/back_end.h"
#include "platform/device_io.h"
#include "platform/types.h"

#include <windows.h>

#include <cstdint>

namespace VESK_BACK_END {

// wchar_t is UTF-16 on Windows.
static_assert(sizeof(wchar_t) == sizeof(char16_t));

inline const wchar_t* Wide(const char16_t* text) {
    return reinterpret_cast<const wchar_t*>(text);
}

inline wchar_t* Wide(char16_t* text) {
    return reinterpret_cast<wchar_t*>(text);
}

inline HANDLE Native(Handle handle) {
    return reinterpret_cast<HANDLE>(handle);
}

/// A FILETIME in units of 100 ns.
inline std::uint64_t Ticks(const FILETIME& time) {
    return std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
}

/// Passes on the status of an operation, and its interface pointer if it succeeded.
template <class Interface>
HResult Made(HRESULT status, void* object, Interface& made) {
    if (SUCCEEDED(status)) {
        made = Interface{reinterpret_cast<std::uintptr_t>(object)};
    }
    return status;
}

} // namespace VESK_BACK_END
