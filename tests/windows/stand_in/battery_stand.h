// A battery that Windows finds among its devices.
#pragma once

#include "driver_stand.h"
#include "registry_stand.h"

#include <string>

namespace stand_in {

/// Puts a battery into the device manager's registry keys and its device into the stand-in driver, and takes the keys
/// away again when destroyed.
class BatteryStand {
public:
    /// The device's name of the n-th battery, from 0: Windows lists them in this order.
    static std::wstring DeviceOf(unsigned place);

    BatteryStand(test::DriverStand& driver, unsigned place);

private:
    test::RegistryStand m_instance;
    test::RegistryStand m_interface;
};

} // namespace stand_in
