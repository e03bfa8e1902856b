// A battery that Windows finds among its devices.
#pragma once

#include "driver_stand.h"
#include "registry_stand.h"

#include <cstdint>
#include <string>

namespace test {

/// What the battery answers, in the order of BATTERY_INFORMATION and BATTERY_STATUS.
struct BatteryAnswers {
    std::uint32_t tag = 7;
    std::uint32_t capabilities = 0x80000000; // BATTERY_SYSTEM_BATTERY
    std::uint32_t designedCapacity = 0;
    std::uint32_t fullChargedCapacity = 0;
    std::uint32_t cycleCount = 0;
    std::uint32_t capacity = 0;
    std::uint32_t voltage = 0;
};

namespace battery_request {
inline constexpr std::uint32_t QueryTag = 0x294040;
inline constexpr std::uint32_t QueryInformation = 0x294044;
inline constexpr std::uint32_t QueryStatus = 0x29404C;
} // namespace battery_request

/// Puts a battery into the device manager's registry keys and its device into the stand-in driver, and takes
/// the keys away again when destroyed.
class BatteryStand {
public:
    /// The battery device's name, for rules and for the log.
    static constexpr const wchar_t* Device = L"ROOT#VESKBAT#0000#{72631e54-78a4-11d0-bcf7-00aa00b7b32a}";

    /// The same of the n-th battery, from 0: Windows lists them in this order.
    static std::wstring DeviceOf(unsigned place);

    explicit BatteryStand(DriverStand& driver, unsigned place = 0);

    void Answer(const BatteryAnswers& answers);

    /// Whether the battery is plugged in: one that is not stays known to Windows, but is not among the devices
    /// that are present.
    void SetPresent(bool present);

private:
    DriverStand& m_driver;
    std::wstring m_device;
    RegistryStand m_instance;
    RegistryStand m_interface;
};

} // namespace test
