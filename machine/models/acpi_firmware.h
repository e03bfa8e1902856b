// The pass-through device ZRNACPI, with the part of the firmware that answers behind it.
#pragma once

#include "machine/models/device.h"
#include "machine/profile/sections/firmware_profile.h"

#include <utility>

namespace machine {

/// The firmware walks its event log itself: a request for the next record gets the one behind the last that was
/// given, whoever asked for that.
class AcpiFirmware final : public Device {
public:
    explicit AcpiFirmware(AcpiProfile profile) : m_profile(std::move(profile)) {}

    platform::SystemError Open(std::uint32_t access, std::uint32_t shareMode) override;

    void Close() override {}

    ControlAnswer Control(std::uint32_t code, std::span<const std::byte> in, std::size_t room) override;

private:
    [[nodiscard]] AcpiFault FaultOf(std::uint32_t request) const;
    ControlAnswer CarryOut(std::span<const std::byte> in);
    ControlAnswer ControlById(std::uint32_t id, std::uint32_t what);
    ControlAnswer NextRecord();

    AcpiProfile m_profile;
    std::uint32_t m_requests = 0;
    std::size_t m_record = 0;
    std::uint32_t m_given = 0; // how often the present record has been given
};

} // namespace machine
