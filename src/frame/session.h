// The driver session: the one handle on the kernel I/O driver, and the driver's IOCTLs.
#pragma once

#include "platform/device_io.h"

#include <cstdint>
#include <span>

namespace sondrel {

/// The opened device. Only InitializeSondrel writes it: ShutdownSondrel closes the handle and leaves the value,
/// which nothing uses while SessionOpen is 0.
extern platform::Handle DriverHandle;

/// Not 0 while a session is open. Everything that needs a session tests it.
extern std::uint8_t SessionOpen;

/// The InitializeSondrel calls that no ShutdownSondrel has matched yet. Above 0 exactly while SessionOpen is set.
extern std::uint32_t SessionRefCount;

/// The driver's IOCTLs.
namespace driver_request {
inline constexpr std::uint32_t Version = 0x80102040;
inline constexpr std::uint32_t RefCount = 0x80102044;
inline constexpr std::uint32_t CpuId = 0x80102068;
inline constexpr std::uint32_t EcCommand = 0x80102070;
inline constexpr std::uint32_t PowerLimit1 = 0x80102074;
inline constexpr std::uint32_t PowerLimit2 = 0x80102078;
inline constexpr std::uint32_t PackagePower = 0x8010207C;
} // namespace driver_request

/// Sends one IOCTL on the session's handle; `in` and `out` may be the same bytes. The caller tests SessionOpen
/// first. False on failure, which leaves `out` unchanged.
bool DriverExchange(std::uint32_t code, std::span<const std::byte> in, std::span<std::byte> out);

} // namespace sondrel
