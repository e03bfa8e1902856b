// COM apartments.
#pragma once

#include "platform/types.h"

#include <span>

namespace platform {

namespace apartment {
inline constexpr std::uint32_t Multithreaded = 0;  // COINIT_MULTITHREADED
inline constexpr std::uint32_t SingleThreaded = 2; // COINIT_APARTMENTTHREADED
} // namespace apartment

namespace hresult {
inline constexpr HResult Ok = 0;
inline constexpr HResult False = 1; // entered already
inline constexpr HResult NotImplemented = static_cast<HResult>(0x80004001);
inline constexpr HResult NoInterface = static_cast<HResult>(0x80004002);
inline constexpr HResult Fail = static_cast<HResult>(0x80004005);
inline constexpr HResult OutOfMemory = static_cast<HResult>(0x8007000E);
inline constexpr HResult ChangedMode = static_cast<HResult>(0x80010106); // the thread is in another kind
} // namespace hresult

constexpr bool Failed(HResult status) {
    return status < 0;
}

/// CoInitializeEx with no reserved pointer. CoInitialize is the same with `apartment::SingleThreaded`.
HResult CoInitializeEx(std::uint32_t apartmentKind);

void CoUninitialize();

/// The identifier as text in braces, 39 characters with its terminator. 0 when the room is not enough.
int StringFromGUID2(const Guid& guid, std::span<char16_t> text);

} // namespace platform
