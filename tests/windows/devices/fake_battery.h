// A battery that Windows finds among its devices.
#pragma once

#include "fake_devices.h"
#include "saved_registry_key.h"

#include <string>

namespace devices {

/// Puts a battery into the device manager's registry keys and its device into the fake driver, and takes the keys
/// away again when destroyed.
class FakeBattery {
public:
    /// The device's name of the n-th battery, from 0: Windows lists them in this order.
    static std::wstring DeviceOf(unsigned place);

    FakeBattery(test::FakeDevices& driver, unsigned place);

private:
    test::SavedRegistryKey m_instance;
    test::SavedRegistryKey m_interface;
};

} // namespace devices
