// The embedded controller, seen from its command port.
#pragma once

#include "machine/models/ec/ec_firmware.h"
#include "machine/models/machine_course.h"
#include "machine/profile/sections/ec_profile.h"

#include <array>
#include <cstdint>
#include <span>

namespace machine {

class EmbeddedController {
public:
    explicit EmbeddedController(EcProfile profile);

    /// Other values are measured now.
    void Measure(const MachineCourse& course);

    /// Carries out one command. A command that this firmware does not have is answered with a status.
    EcAnswer CarryOut(std::uint8_t command, std::span<const std::uint8_t> data);

private:
    [[nodiscard]] std::uint8_t IdentityRegister(std::uint8_t number) const;
    const EcFault* FaultOf(std::uint8_t command);

    EcProfile m_profile;
    EcFirmware m_firmware;
    std::array<std::uint32_t, 256> m_uses{};
};

} // namespace machine
