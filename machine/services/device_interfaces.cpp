#include "platform/device_interfaces.h"

#include "machine/machine.h"
#include "machine/services/last_error.h"
#include "platform/back_end.h"

#include <cstring>

namespace VESK_BACK_END {
namespace {

using machine::BatteryDevice;

// The only class with devices on this machine.
constexpr Guid BatteryClass{0x72631e54, 0x78a4, 0x11d0, {0xbc, 0xf7, 0x00, 0xaa, 0x00, 0xb7, 0xb3, 0x2a}};

constexpr std::uint32_t OnlyPresentInterfaces = 0x02 | 0x10;

struct OpenDeviceInfoSet {
    std::size_t interfaces;
};

} // namespace

DeviceInfoSet SetupDiGetClassDevsW(const Guid& interfaceClass, std::uint32_t flags) {
    const auto machine = machine::Current();
    if (flags != OnlyPresentInterfaces) {
        machine::SetLastError(error::InvalidParameter);
        return DeviceInfoSet::Invalid;
    }
    const std::size_t count = interfaceClass == BatteryClass ? machine->batteries.size() : 0;
    return machine->handles.Open<DeviceInfoSet>(OpenDeviceInfoSet{count});
}

bool SetupDiEnumDeviceInterfaces(DeviceInfoSet set, const Guid& interfaceClass, std::uint32_t index,
                                 DeviceInterfaceData& data) {
    const auto machine = machine::Current();
    const OpenDeviceInfoSet* const open = machine->handles.Find<OpenDeviceInfoSet>(set);
    if (open == nullptr) {
        return machine::Succeed(error::InvalidHandle);
    }
    if (index >= open->interfaces || interfaceClass != BatteryClass) {
        return machine::Succeed(error::NoMoreItems);
    }
    data = {.interfaceClass = interfaceClass, .flags = 1, .reserved = index};
    return true;
}

bool SetupDiGetDeviceInterfaceDetailW(DeviceInfoSet set, const DeviceInterfaceData& data,
                                      std::span<std::byte> detail, std::uint32_t& requiredSize) {
    constexpr std::uint32_t FixedPart = 8;
    constexpr std::size_t PathAt = 4;
    constexpr SystemError BadBuffer = 1784; // ERROR_INVALID_USER_BUFFER
    const auto machine = machine::Current();
    if (machine->handles.Find<OpenDeviceInfoSet>(set) == nullptr) {
        return machine::Succeed(error::InvalidHandle);
    }
    const std::u16string path = BatteryDevice::PathOf(data.reserved);
    const std::size_t pathBytes = (path.size() + 1) * sizeof(char16_t);
    requiredSize = static_cast<std::uint32_t>(PathAt + pathBytes);
    if (detail.size() < requiredSize) {
        return machine::Succeed(error::InsufficientBuffer);
    }
    std::uint32_t fixedPart = 0;
    std::memcpy(&fixedPart, detail.data(), sizeof fixedPart);
    if (fixedPart != FixedPart) {
        return machine::Succeed(BadBuffer);
    }
    std::memcpy(detail.data() + PathAt, path.c_str(), pathBytes);
    return true;
}

void SetupDiDestroyDeviceInfoList(DeviceInfoSet set) {
    machine::Current()->handles.Close(set);
}

} // namespace VESK_BACK_END
