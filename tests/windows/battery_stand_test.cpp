#include "battery_stand.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initguid.h>
#include <winioctl.h>

#include <poclass.h>
#include <setupapi.h>

namespace {

/// How many batteries a program that goes through the device manager finds.
int PresentBatteries() {
    const HDEVINFO devices =
        ::SetupDiGetClassDevsW(&GUID_DEVICE_BATTERY, nullptr, nullptr, DIGCF_PRESENT | DIGCF_DEVICEINTERFACE);
    SP_DEVICE_INTERFACE_DATA found{.cbSize = sizeof found};
    int count = 0;
    while (::SetupDiEnumDeviceInterfaces(devices, nullptr, &GUID_DEVICE_BATTERY, static_cast<DWORD>(count),
                                         &found)) {
        ++count;
    }
    ::SetupDiDestroyDeviceInfoList(devices);
    return count;
}

TEST(BatteryStandTest, IsFoundByTheDeviceManagerWhilePresent) {
    test::DriverStand driver;
    EXPECT_EQ(PresentBatteries(), 0);
    {
        test::BatteryStand battery(driver);
        EXPECT_EQ(PresentBatteries(), 1);
        battery.SetPresent(false);
        EXPECT_EQ(PresentBatteries(), 0);
        battery.SetPresent(true);

        battery.Answer({.capacity = 43000, .voltage = 12345});
        const HANDLE device =
            ::CreateFileW((std::wstring(L"\\\\?\\") + test::BatteryStand::Device).c_str(),
                          GENERIC_READ | GENERIC_WRITE, 3, nullptr, OPEN_EXISTING, 0, nullptr);
        BATTERY_WAIT_STATUS wait{.BatteryTag = 7};
        BATTERY_STATUS status{};
        DWORD written = 0;
        EXPECT_TRUE(::DeviceIoControl(device, IOCTL_BATTERY_QUERY_STATUS, &wait, sizeof wait, &status,
                                      sizeof status, &written, nullptr));
        EXPECT_EQ(status.Voltage, 12345u);
        ::CloseHandle(device);
    }
    EXPECT_EQ(PresentBatteries(), 0);
}

} // namespace
