#include "machine/models/ec/embedded_controller.h"

#include <algorithm>
#include <utility>

namespace machine {
namespace {

// Commands that every generation has.
constexpr std::uint8_t CommandModeQuery = 0x8E;
constexpr std::uint8_t CommandIdentityRead = 0xBB;

constexpr std::uint8_t ModeTablet = 0x33;

// The identity register file.
constexpr std::size_t RegisterRevision = 0x03; // two characters
constexpr std::size_t RegisterChipId = 0x10;
constexpr std::size_t RegisterChipName = 0x12; // four characters

} // namespace

EmbeddedController::EmbeddedController(EcProfile profile)
    : m_profile(std::move(profile)), m_banks(m_profile), m_tachometer(m_profile), m_bus(m_profile) {}

void EmbeddedController::Measure(const MachineCourse& course) {
    course.Measure(m_profile);
    m_banks = EcRegisterBanks(m_profile);
    m_tachometer.Measure(m_profile);
    m_bus.Measure(m_profile);
}

const EcFault* EmbeddedController::FaultOf(std::uint8_t command) {
    const std::uint32_t use = ++m_uses[command];
    for (const EcFault& fault : m_profile.faults) {
        if (fault.command == command && (fault.use == 0 || fault.use == use)) {
            return &fault;
        }
    }
    return nullptr;
}

std::uint8_t EmbeddedController::IdentityRegister(std::uint8_t number) const {
    std::array<char, 256> registers{};
    std::ranges::copy(m_profile.revision, registers.begin() + RegisterRevision);
    registers[RegisterChipId] = static_cast<char>(m_profile.chipId);
    std::ranges::copy(m_profile.chipName, registers.begin() + RegisterChipName);
    return static_cast<std::uint8_t>(registers[number]);
}

EcAnswer EmbeddedController::CarryOut(std::uint8_t command, std::span<const std::uint8_t> data) {
    if (const EcFault* const fault = FaultOf(command); fault != nullptr) {
        return {fault->status, fault->byte};
    }
    if (command == CommandIdentityRead) {
        return data.size() == 1 ? EcAnswer{0, IdentityRegister(data[0])} : EcAnswer{ec_status::BadData};
    }
    if (command == CommandModeQuery) {
        const bool asksForTablet = data.size() == 2 && data[0] == ModeTablet && data[1] == 0;
        return asksForTablet ? EcAnswer{0, m_profile.tabletMode} : EcAnswer{ec_status::BadData};
    }
    if (const auto answer = m_tachometer.CarryOut(command, data)) {
        return *answer;
    }
    if (const auto answer = m_bus.CarryOut(command, data)) {
        return *answer;
    }
    if (const auto byte = m_banks.Find(command, data)) {
        return {0, *byte};
    }
    return {ReadsBank(command) ? ec_status::BadData : ec_status::BadCommand};
}

} // namespace machine
