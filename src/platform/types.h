// The values that cross the boundary between the library and the operating system.
//
// Everything here is a plain value: it can be printed, compared, recorded on one machine and replayed on
// another. No header of src/platform includes anything of the library.
#pragma once

#include <cstddef>
#include <cstdint>

namespace platform {

/// A Win32 error code, as GetLastError and the registry return it. 0 is success.
using SystemError = std::uint32_t;

namespace error {
inline constexpr SystemError Success = 0;
inline constexpr SystemError FileNotFound = 2;
inline constexpr SystemError AccessDenied = 5;
inline constexpr SystemError InvalidHandle = 6;
inline constexpr SystemError InvalidData = 13;
inline constexpr SystemError GenFailure = 31;
inline constexpr SystemError InvalidParameter = 87;
inline constexpr SystemError InsufficientBuffer = 122;
inline constexpr SystemError ModuleNotFound = 126;
inline constexpr SystemError ProcedureNotFound = 127;
inline constexpr SystemError MoreData = 234;
inline constexpr SystemError NoMoreItems = 259;
} // namespace error

/// A COM status. Negative is a failure.
using HResult = std::int32_t;

/// Access masks.
namespace access {
inline constexpr std::uint32_t GenericReadWrite = 0xC0000000; // GENERIC_READ | GENERIC_WRITE
inline constexpr std::uint32_t KeyRead = 0x20019;             // KEY_READ
inline constexpr std::uint32_t KeyWrite = 0x20006;            // KEY_WRITE
inline constexpr std::uint32_t KeyAll = 0xF003F;              // KEY_ALL_ACCESS
} // namespace access

struct Guid {
    std::uint32_t data1;
    std::uint16_t data2;
    std::uint16_t data3;
    std::uint8_t data4[8];

    friend bool operator==(const Guid&, const Guid&) = default;
};

} // namespace platform
