#include "platform/device_interfaces.h"

#include "platform/back_end.h"
#include "platform/battery.h"

#include <windows.h>

#include <winioctl.h>

#include <poclass.h>
#include <setupapi.h>

#include <cstddef>

namespace VESK_BACK_END {
namespace {

HDEVINFO Native(DeviceInfoSet set) {
    return reinterpret_cast<HDEVINFO>(set);
}

const GUID& Native(const Guid& guid) {
    static_assert(sizeof(Guid) == sizeof(GUID));
    return reinterpret_cast<const GUID&>(guid);
}

static_assert(device_interface::PresentInterfaces == (DIGCF_PRESENT | DIGCF_DEVICEINTERFACE));
static_assert(device_interface::DetailSize == sizeof(SP_DEVICE_INTERFACE_DETAIL_DATA_W));
static_assert(device_interface::DetailPathOffset == offsetof(SP_DEVICE_INTERFACE_DETAIL_DATA_W, DevicePath));

static_assert(battery_request::QueryTag == IOCTL_BATTERY_QUERY_TAG);
static_assert(battery_request::QueryInformation == IOCTL_BATTERY_QUERY_INFORMATION);
static_assert(battery_request::QueryStatus == IOCTL_BATTERY_QUERY_STATUS);
static_assert(BatterySystemBattery == BATTERY_SYSTEM_BATTERY);
static_assert(sizeof(BatteryQuery) == sizeof(BATTERY_QUERY_INFORMATION));
static_assert(offsetof(BatteryInformation, designedCapacity) ==
              offsetof(BATTERY_INFORMATION, DesignedCapacity));
static_assert(offsetof(BatteryInformation, cycleCount) == offsetof(BATTERY_INFORMATION, CycleCount));
static_assert(sizeof(BatteryInformation) == sizeof(BATTERY_INFORMATION));
static_assert(sizeof(BatteryWaitStatus) == sizeof(BATTERY_WAIT_STATUS));
static_assert(offsetof(BatteryStatus, voltage) == offsetof(BATTERY_STATUS, Voltage));
static_assert(sizeof(BatteryStatus) == sizeof(BATTERY_STATUS));

} // namespace

DeviceInfoSet SetupDiGetClassDevsW(const Guid& interfaceClass, std::uint32_t flags) {
    return DeviceInfoSet{reinterpret_cast<std::uintptr_t>(
        ::SetupDiGetClassDevsW(&Native(interfaceClass), nullptr, nullptr, flags))};
}

bool SetupDiEnumDeviceInterfaces(DeviceInfoSet set, const Guid& interfaceClass, std::uint32_t index,
                                 DeviceInterfaceData& data) {
    SP_DEVICE_INTERFACE_DATA native{};
    native.cbSize = sizeof native;
    if (::SetupDiEnumDeviceInterfaces(Native(set), nullptr, &Native(interfaceClass), index, &native) ==
        FALSE) {
        return false;
    }
    data.interfaceClass = reinterpret_cast<const Guid&>(native.InterfaceClassGuid);
    data.flags = native.Flags;
    data.reserved = native.Reserved;
    return true;
}

bool SetupDiGetDeviceInterfaceDetailW(DeviceInfoSet set, const DeviceInterfaceData& data,
                                      std::span<std::byte> detail, std::uint32_t& requiredSize) {
    SP_DEVICE_INTERFACE_DATA native{};
    native.cbSize = sizeof native;
    native.InterfaceClassGuid = Native(data.interfaceClass);
    native.Flags = data.flags;
    native.Reserved = data.reserved;
    auto* const block =
        detail.empty() ? nullptr : reinterpret_cast<SP_DEVICE_INTERFACE_DETAIL_DATA_W*>(detail.data());
    DWORD required = 0;
    const BOOL done = ::SetupDiGetDeviceInterfaceDetailW(
        Native(set), &native, block, static_cast<DWORD>(detail.size()), &required, nullptr);
    requiredSize = required;
    return done != FALSE;
}

void SetupDiDestroyDeviceInfoList(DeviceInfoSet set) {
    ::SetupDiDestroyDeviceInfoList(Native(set));
}

} // namespace VESK_BACK_END
