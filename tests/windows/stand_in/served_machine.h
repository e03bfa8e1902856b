// The devices of a simulated machine, behind the device names of a real Windows.
#pragma once

#include "battery_stand.h"
#include "driver_stand.h"

#include "platform/simulated/acpi_firmware.h"
#include "platform/simulated/battery_device.h"
#include "platform/simulated/embedded_controller.h"
#include "platform/simulated/io_driver.h"
#include "platform/simulated/profile.h"

#include <map>
#include <optional>
#include <string>

namespace stand_in {

/// Answers what programs ask the devices of a machine: the stand-in driver takes the requests, the simulated
/// machine's own models answer them.
class ServedMachine {
public:
    explicit ServedMachine(const machine::Profile& profile);

    /// Answers until the process ends.
    void ServeWhile(HANDLE process);

private:
    void AnswerWaiting();

    test::DriverStand m_stand;
    machine::EmbeddedController m_controller;
    machine::IoDriver m_driver;
    machine::AcpiFirmware m_acpi;
    // The machine's first battery: the library looks at no other.
    std::optional<machine::BatteryDevice> m_battery;
    std::optional<test::BatteryStand> m_batteryStand;
    std::map<std::wstring, machine::Device*> m_devices;
};

} // namespace stand_in
