// The EC's firmware behind its identity: register banks, tachometer and battery bus of its generation.
#pragma once

#include "machine/models/ec/ec_answer.h"
#include "machine/models/ec/ec_battery_bus.h"
#include "machine/models/ec/ec_register_banks.h"
#include "machine/models/ec/ec_tachometer.h"

namespace machine {

class EcFirmware {
public:
    explicit EcFirmware(const EcProfile& profile);

    /// Other values are measured now. What is being counted or transferred goes on.
    void Measure(const EcProfile& profile);

    EcAnswer CarryOut(std::uint8_t command, std::span<const std::uint8_t> data);

private:
    EcRegisterBanks m_banks;
    EcTachometer m_tachometer;
    EcBatteryBus m_bus;
};

} // namespace machine
