// What can be opened by a device path on the simulated machine.
#pragma once

#include "platform/types.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace machine {

/// How a device answers one control request.
struct ControlAnswer {
    platform::SystemError error = platform::error::Success;
    std::vector<std::byte> bytes{};
};

/// One device. Requests are buffered, as a driver of METHOD_BUFFERED sees them: the input is a copy, and the
/// answer reaches the caller's buffer only when the request worked.
class Device {
public:
    virtual ~Device() = default;

    /// Whether this opening is granted, in addition to those that are open.
    virtual platform::SystemError Open(std::uint32_t access, std::uint32_t shareMode) = 0;
    virtual void Close() {}
    virtual ControlAnswer Control(std::uint32_t code, std::span<const std::byte> in,
                                  std::size_t capacity) = 0;
};

/// One opening of a device.
struct OpenDevice {
    Device* device;
};

} // namespace machine
