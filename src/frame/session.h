// The driver session: the one handle on the kernel I/O driver, and what may be asked of the driver itself.
#pragma once

#include "platform/device_io.h"

#include <cstdint>
#include <span>

namespace sondrel {

/// The opened device. Written by InitializeSondrel only: ShutdownSondrel closes it and leaves the value,
/// which nothing uses while SessionOpen is 0.
extern platform::Handle DriverHandle;

/// Non-zero while a session is open. Every part that needs a session tests this.
extern std::uint8_t SessionOpen;

/// InitializeSondrel calls not yet matched by ShutdownSondrel. Above 0 exactly while SessionOpen is set.
extern std::uint32_t SessionRefCount;

/// The driver's requests.
namespace driver_request {
inline constexpr std::uint32_t Version = 0x80102040;
inline constexpr std::uint32_t RefCount = 0x80102044;
inline constexpr std::uint32_t CpuId = 0x80102068;
inline constexpr std::uint32_t EcCommand = 0x80102070;
inline constexpr std::uint32_t PowerLimit1 = 0x80102074;
inline constexpr std::uint32_t PowerLimit2 = 0x80102078;
inline constexpr std::uint32_t PackagePower = 0x8010207C;
} // namespace driver_request

/// Exchanges one request over the session's handle; `in` and `out` may be the same bytes. The caller has
/// tested SessionOpen. False when the platform refused the request, which leaves `out` as it was.
bool DriverExchange(std::uint32_t code, std::span<const std::byte> in, std::span<std::byte> out);

} // namespace sondrel
