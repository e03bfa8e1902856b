// The embedded controller, seen from its command port.
#pragma once

#include "machine/models/ec/ec_answer.h"
#include "machine/models/ec/ec_battery_bus.h"
#include "machine/models/ec/ec_register_banks.h"
#include "machine/models/ec/ec_tachometer.h"
#include "machine/models/machine_course.h"
#include "machine/profile/sections/ec_profile.h"

#include <array>
#include <cstdint>
#include <span>

namespace machine {

class EmbeddedController {
public:
    explicit EmbeddedController(EcProfile profile);

    /// Takes over new measurements. What is being counted or transferred continues.
    void Measure(const MachineCourse& course);

    /// Carries out one command. Commands that this firmware does not have get a status.
    EcAnswer CarryOut(std::uint8_t command, std::span<const std::uint8_t> data);

private:
    [[nodiscard]] std::uint8_t IdentityRegister(std::uint8_t number) const;
    const EcFault* FaultOf(std::uint8_t command);

    EcProfile m_profile;
    EcRegisterBanks m_banks;
    EcTachometer m_tachometer;
    EcBatteryBus m_bus;
    std::array<std::uint32_t, 256> m_uses{};
};

} // namespace machine
