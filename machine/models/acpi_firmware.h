// The pass-through device ZRNACPI with the part of the firmware that implements it.
#pragma once

#include "machine/models/device.h"
#include "machine/profile/sections/firmware_profile.h"

#include <utility>

namespace machine {

/// The firmware has one place in its event log: a request for the next record gets the one after the last that was
/// returned, to any caller.
class AcpiFirmware final : public Device {
public:
    explicit AcpiFirmware(AcpiProfile profile) : m_profile(std::move(profile)) {}

    platform::SystemError Open(std::uint32_t access, std::uint32_t shareMode) override;

    ControlAnswer Control(std::uint32_t code, std::span<const std::byte> in, std::size_t outSize) override;

private:
    [[nodiscard]] AcpiFault FaultOf(std::uint32_t request) const;
    ControlAnswer CarryOut(std::span<const std::byte> in);
    ControlAnswer ControlById(std::uint32_t id, std::uint32_t what);
    ControlAnswer NextRecord();

    AcpiProfile m_profile;
    std::uint32_t m_requests = 0;
    std::size_t m_record = 0;
    std::uint32_t m_returned = 0; // how often the present record has been returned
};

} // namespace machine
