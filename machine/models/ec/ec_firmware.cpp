#include "machine/models/ec/ec_firmware.h"

namespace machine {

EcFirmware::EcFirmware(const EcProfile& profile) : m_banks(profile), m_tachometer(profile), m_bus(profile) {}

void EcFirmware::Measure(const EcProfile& profile) {
    m_banks = EcRegisterBanks(profile);
    m_tachometer.Measure(profile);
    m_bus.Measure(profile);
}

EcAnswer EcFirmware::CarryOut(std::uint8_t command, std::span<const std::uint8_t> data) {
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
