#include "machine/models/ec/ec_battery_bus.h"

#include "machine/models/ec/ec_generation.h"
#include "machine/models/ec/ec_units.h"

#include <algorithm>

namespace machine {
namespace {

constexpr std::uint8_t ReadWordProtocol = 0x09;
constexpr std::uint8_t BatteryAddress = 0x16;

constexpr std::uint16_t NoAcknowledge = 0xFFFF;

} // namespace

EcBatteryBus::EcBatteryBus(const EcProfile& profile) : m_battery(profile.battery) {
    // Of the banked firmware the chip decides. Later chips have neither engine.
    constexpr Engine OfChips[] = {Engine::First, Engine::Second, Engine::None};
    const Engine ofChip = OfChips[std::min<std::size_t>(profile.chipId, 2)];
    const Engine engines[] = {Engine::None, Engine::First, ofChip, Engine::First, Engine::Second};
    m_engine = engines[static_cast<std::size_t>(GenerationOf(profile))];
}

void EcBatteryBus::Latch(std::uint8_t batteryRegister) {
    constexpr std::uint8_t ManufactureDate = 0x1B;
    constexpr std::uint8_t LastCell = 0x3C;
    constexpr std::uint8_t FirstCell = 0x3F;
    if (batteryRegister == ManufactureDate) {
        m_word = PackedDate(m_battery.manufactured);
    } else if (batteryRegister >= LastCell && batteryRegister <= FirstCell) {
        m_word = Thousandths(m_battery.cellVolts[FirstCell - batteryRegister]);
    } else {
        m_word = NoAcknowledge;
    }
}

/// The first engine has to be set up again for every word.
EcAnswer EcBatteryBus::WriteFirst(std::uint8_t number, std::uint8_t value) {
    m_setUp[number] = value;
    if (number != 0x04) {
        return {};
    }
    const bool complete = value == 0x10 && m_setUp[0x05] == 0x01 && m_setUp[0x06] == ReadWordProtocol &&
                          m_setUp[0x08] == BatteryAddress;
    Latch(complete ? m_setUp[0x09] : 0);
    m_setUp.fill(0);
    return {};
}

EcAnswer EcBatteryBus::StartSecond() {
    if (m_setUp[0x18] != ReadWordProtocol || m_setUp[0x1A] != BatteryAddress) {
        return {ec_status::BadData};
    }
    m_running = true;
    m_polls = 0;
    return {};
}

std::uint8_t EcBatteryBus::SecondState() {
    constexpr std::uint8_t Idle = 0xA0;
    constexpr std::uint8_t Busy = 0xA1;
    if (m_running && (m_battery.busyForEver || m_polls++ < m_battery.busyPolls)) {
        return Busy;
    }
    if (m_running) {
        Latch(m_setUp[0x1B]);
        m_setUp.fill(0);
        m_running = false;
    }
    return Idle;
}

std::optional<EcAnswer> EcBatteryBus::CarryOut(std::uint8_t command, std::span<const std::uint8_t> data) {
    const bool first = m_engine == Engine::First;
    const bool second = m_engine == Engine::Second;
    const auto byteAt = [this, &data](std::uint8_t low) {
        if (data.size() != 1 || (data[0] != low && data[0] != low + 1)) {
            return EcAnswer{ec_status::BadData};
        }
        return EcAnswer{0, static_cast<std::uint8_t>(data[0] == low ? m_word : m_word >> 8)};
    };
    if (first && command == 0xAB && data.size() == 2) {
        return WriteFirst(data[0], data[1]);
    }
    if (first && command == 0xAA) {
        return byteAt(0x40);
    }
    if (second && command == 0x9B && data.size() == 2) {
        m_setUp[data[0]] = data[1];
        return EcAnswer{};
    }
    if (second && command == 0x9C && data.empty()) {
        return StartSecond();
    }
    if (second && command == 0x9A) {
        return byteAt(0x1C);
    }
    if (second && command == 0x80 && data.size() == 2 && data[0] == 0xED && data[1] == 0xE3) {
        return EcAnswer{0, SecondState()};
    }
    return std::nullopt;
}

} // namespace machine
