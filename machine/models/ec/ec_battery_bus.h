// The EC's bus to the registers of the battery.
#pragma once

#include "machine/models/ec/ec_answer.h"
#include "machine/profile/sections/ec_profile.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>

namespace machine {

/// The host side of the battery's bus, in one of two engines, and the battery at its other end.
class EcBatteryBus {
public:
    explicit EcBatteryBus(const EcProfile& profile);

    /// Takes over new cell voltages.
    void Measure(const EcProfile& profile) { m_battery.cellVolts = profile.battery.cellVolts; }

    std::optional<EcAnswer> CarryOut(std::uint8_t command, std::span<const std::uint8_t> data);

private:
    EcAnswer WriteFirst(std::uint8_t number, std::uint8_t value);
    EcAnswer StartSecond();
    std::uint8_t SecondState();
    void Latch(std::uint8_t batteryRegister);

    enum class Engine : std::uint8_t { None, First, Second };

    Engine m_engine = Engine::None;
    EcBattery m_battery;
    std::array<std::uint8_t, 256> m_setUp{};
    bool m_running = false;
    std::uint32_t m_polls = 0;
    std::uint16_t m_word = 0;
};

} // namespace machine
