// The embedded controller's firmware, seen from its command port.
#pragma once

#include "platform/simulated/profile.h"

#include <array>
#include <cstdint>
#include <span>

namespace machine {

struct EcAnswer {
    std::uint32_t status = 0;
    std::uint8_t byte = 0;
};

class EmbeddedController {
public:
    explicit EmbeddedController(EcProfile profile);

    /// Carries out one command. A command that this firmware does not have is answered with a status.
    EcAnswer CarryOut(std::uint8_t command, std::span<const std::uint8_t> data);

private:
    [[nodiscard]] std::uint8_t IdentityRegister(std::uint8_t number) const;
    std::uint32_t FaultOf(std::uint8_t command);

    EcProfile m_profile;
    std::array<std::uint32_t, 256> m_uses{};
};

} // namespace machine
