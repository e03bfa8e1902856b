// The firmware's pass-through device: status and control by device id.
//
// The device is open only within one call: every operation that opens it closes it again before it returns, on
// every path.
#pragma once

#include "platform/device_io.h"

#include <cstdint>
#include <span>

namespace sondrel {

/// The opened device; null while it is closed. One slot for the process: two threads must not use these
/// operations at once.
extern platform::Handle ZrnAcpiHandle;

/// The firmware's two methods, by the tag that requests carry: four letters, the first in the lowest byte.
namespace acpi_method {
inline constexpr std::uint32_t ReadStatus = 0x53545344; // DSTS
inline constexpr std::uint32_t Control = 0x53564544;    // DEVS
} // namespace acpi_method

/// What the firmware knows by a number.
namespace acpi_id {
inline constexpr std::uint32_t EventStore = 0x00060059;
inline constexpr std::uint32_t PSensor = 0x00060068;
} // namespace acpi_id

/// The most bytes that a reply has.
inline constexpr std::uint32_t AcpiReplySize = 1024;

/// Opens the device. False when it cannot be opened, which leaves the handle null.
bool InitializeZRNACPIDevice();

/// Closes the device. False when it was not open.
bool UninitializeZRNACPIDevice();

/// Keeps the device open for a scope.
class OpenZrnAcpi {
public:
    OpenZrnAcpi() { InitializeZRNACPIDevice(); }

    OpenZrnAcpi(const OpenZrnAcpi&) = delete;
    OpenZrnAcpi& operator=(const OpenZrnAcpi&) = delete;

    ~OpenZrnAcpi() { UninitializeZRNACPIDevice(); }

    [[nodiscard]] explicit operator bool() const { return ZrnAcpiHandle != platform::Handle::Null; }
};

/// Sends one request over the open device. On success the reply's first bytes are in `reply`, as many as it
/// has room for and the device reported, and `replySize` is their number. False leaves both as they were: the
/// device is not open, there is no memory for the request, or the device refused it.
bool ZrnAcpiCall(std::uint32_t method, std::span<const std::byte> arguments, std::span<std::byte> reply,
                 std::uint32_t& replySize);

/// Controls: opens the device, calls DEVS and closes it. A reply below four bytes counts as the value 0.
/// False leaves `value` as it was.
bool ACPI_ZRN_DEVS(std::uint32_t arg0, std::uint32_t arg1, std::uint32_t& value);

/// Reads a status by device id, in the same way with DSTS.
bool ACPI_ZRN_DSTS(std::uint32_t arg, std::uint32_t& value);

/// Logs the arguments of a DEVS call.
void TraceDevsArguments(std::uint32_t arg0, std::uint32_t arg1);

} // namespace sondrel
