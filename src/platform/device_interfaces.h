// Present device interfaces of a class (SetupAPI).
#pragma once

#include "platform/support/owned.h"
#include "platform/types.h"

#include <span>

namespace platform {

enum class DeviceInfoSet : std::uintptr_t { Invalid = ~std::uintptr_t{0} };

/// SP_DEVICE_INTERFACE_DATA without its size field.
struct DeviceInterfaceData {
    Guid interfaceClass{};
    std::uint32_t flags = 0;
    std::uintptr_t reserved = 0;
};

namespace device_interface {
inline constexpr std::uint32_t PresentInterfaces = 0x12; // DIGCF_PRESENT | DIGCF_DEVICEINTERFACE
// SP_DEVICE_INTERFACE_DETAIL_DATA_W as a block of bytes: the value of its size field, and the offset of the path.
inline constexpr std::uint32_t DetailSize = 8;
inline constexpr std::size_t DetailPathOffset = 4;
} // namespace device_interface

/// SetupDiGetClassDevsW with no enumerator and no window. `DeviceInfoSet::Invalid` on failure.
DeviceInfoSet SetupDiGetClassDevsW(const Guid& interfaceClass, std::uint32_t flags);

/// SetupDiEnumDeviceInterfaces with no device.
bool SetupDiEnumDeviceInterfaces(DeviceInfoSet set, const Guid& interfaceClass, std::uint32_t index,
                                 DeviceInterfaceData& data);

/// SetupDiGetDeviceInterfaceDetailW with no device data. An empty `detail` requests only the size.
bool SetupDiGetDeviceInterfaceDetailW(DeviceInfoSet set, const DeviceInterfaceData& data,
                                      std::span<std::byte> detail, std::uint32_t& requiredSize);

void SetupDiDestroyDeviceInfoList(DeviceInfoSet set);

using OwnedDeviceInfoSet = Owned<DeviceInfoSet, SetupDiDestroyDeviceInfoList, DeviceInfoSet::Invalid>;

} // namespace platform
