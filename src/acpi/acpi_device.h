// The firmware's pass-through device: status and control by device id.
//
// The device is open only within one call: whatever opens it closes it before it returns.
#pragma once

#include "platform/device_io.h"

#include <cstdint>
#include <span>

namespace sondrel {

/// The opened device; null while it is closed. There is one for the process: two threads must not use these
/// operations at the same time.
extern platform::Handle ZrnAcpiHandle;

/// The tags of the firmware's two methods: four letters, the first in the lowest byte.
namespace acpi_method {
inline constexpr std::uint32_t ReadStatus = 0x53545344; // DSTS
inline constexpr std::uint32_t Control = 0x53564544;    // DEVS
} // namespace acpi_method

/// Device ids of the firmware.
namespace acpi_id {
inline constexpr std::uint32_t EventStore = 0x00060059;
inline constexpr std::uint32_t PSensor = 0x00060068;
} // namespace acpi_id

/// The maximum size of a reply in bytes.
inline constexpr std::uint32_t AcpiReplySize = 1024;

/// Opens the device. False on failure; the handle is null then.
bool InitializeZRNACPIDevice();

/// Closes the device. False if it was not open.
bool UninitializeZRNACPIDevice();

/// Opens the device for a scope.
class OpenZrnAcpi {
public:
    OpenZrnAcpi() { InitializeZRNACPIDevice(); }

    OpenZrnAcpi(const OpenZrnAcpi&) = delete;
    OpenZrnAcpi& operator=(const OpenZrnAcpi&) = delete;

    ~OpenZrnAcpi() { UninitializeZRNACPIDevice(); }

    [[nodiscard]] explicit operator bool() const { return ZrnAcpiHandle != platform::Handle::Null; }
};

/// Sends one request to the open device. On success `reply` holds the first bytes of the reply, as many as fit,
/// and `replySize` their number. On failure both are unchanged: the device is not open, memory ran out, or the
/// device refused the request.
bool ZrnAcpiCall(std::uint32_t method, std::span<const std::byte> arguments, std::span<std::byte> reply,
                 std::uint32_t& replySize);

/// Opens the device, calls DEVS (control by device id) and closes it. A reply of less than four bytes is the
/// value 0. On failure `value` is unchanged.
bool ACPI_ZRN_DEVS(std::uint32_t arg0, std::uint32_t arg1, std::uint32_t& value);

/// The same with DSTS (status by device id).
bool ACPI_ZRN_DSTS(std::uint32_t arg, std::uint32_t& value);

/// Logs the arguments of a DEVS call.
void TraceDevsArguments(std::uint32_t arg0, std::uint32_t arg1);

} // namespace sondrel
