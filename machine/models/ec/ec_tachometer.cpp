#include "machine/models/ec/ec_tachometer.h"

#include "machine/models/ec/ec_generation.h"
#include "machine/models/ec/ec_units.h"

#include <algorithm>

namespace machine {
namespace {

struct FanLine {
    std::uint8_t input; // the input that the counter is switched to
    std::uint8_t done;  // the bit that reports the end of its count
};

constexpr FanLine FanLines[] = {{0x20, 0x80}, {0x10, 0x40}, {0x04, 0x08}};

// By generation: none, legacy, banked, windowed, relocated.
constexpr std::size_t TachometerFans[] = {0, 2, 0, 3, 2};

} // namespace

EcTachometer::EcTachometer(const EcProfile& profile) : m_fans(profile.fans) {
    m_fans.resize(TachometerFans[static_cast<std::size_t>(GenerationOf(profile))]);
}

void EcTachometer::Measure(const EcProfile& profile) {
    for (std::size_t fan = 0; fan < std::min(m_fans.size(), profile.fans.size()); ++fan) {
        m_fans[fan].rpm = profile.fans[fan].rpm;
    }
}

EcAnswer EcTachometer::Start(std::span<const std::uint8_t> data) {
    constexpr std::uint8_t CountOnce = 0x02;
    if (data.size() != 3 || data[0] != CountOnce || data[1] != data[2]) {
        return {ec_status::BadData};
    }
    for (std::size_t fan = 0; fan < m_fans.size(); ++fan) {
        if (FanLines[fan].input == data[1]) {
            m_selected = fan;
            m_polls = 0;
            m_count = TachometerCount(m_fans[fan].rpm);
            return {};
        }
    }
    return {ec_status::BadData};
}

std::uint8_t EcTachometer::State() {
    constexpr std::uint8_t Running = 0x01;
    const EcFanSpeed& fan = m_fans[m_selected];
    const bool done = !fan.neverReady && m_polls >= fan.readyAfter;
    ++m_polls;
    return done ? FanLines[m_selected].done : Running;
}

std::optional<EcAnswer> EcTachometer::CarryOut(std::uint8_t command, std::span<const std::uint8_t> data) {
    constexpr std::uint8_t CommandStart = 0xA1;
    constexpr std::uint8_t CommandRead = 0xA0;
    if (m_fans.empty()) {
        return std::nullopt;
    }
    if (command == CommandStart) {
        return Start(data);
    }
    if (command != CommandRead) {
        return std::nullopt;
    }
    if (data.size() != 1) {
        return EcAnswer{ec_status::BadData};
    }
    switch (data[0]) {
    case 0x02:
        return EcAnswer{0, State()};
    case 0x03:
        return EcAnswer{0, static_cast<std::uint8_t>(m_count)};
    case 0x04:
        return EcAnswer{0, static_cast<std::uint8_t>(m_count >> 8)};
    default:
        return EcAnswer{ec_status::BadData};
    }
}

} // namespace machine
