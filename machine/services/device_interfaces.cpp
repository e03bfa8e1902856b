#include "platform/device_interfaces.h"

#include "machine/machine.h"
#include "machine/models/battery_device.h"
#include "machine/text/wide_text.h"
#include "observer/gate.h"
#include "platform/back_end.h"

#include <cstring>

namespace VESK_BACK_END {

using machine::BatteryDevice;
using machine::Call;
using machine::Current;
using machine::Operation;

namespace {

// The only class with devices on this machine.
constexpr Guid BatteryClass{0x72631e54, 0x78a4, 0x11d0, {0xbc, 0xf7, 0x00, 0xaa, 0x00, 0xb7, 0xb3, 0x2a}};

constexpr std::uint32_t OnlyPresentInterfaces = 0x02 | 0x10;

bool Failed(Call& call, SystemError problem) {
    machine::SetLastError(problem);
    return call.Answered(false);
}

bool IsOpen(DeviceInfoSet set) {
    return Current().deviceInfoSets.contains(static_cast<std::uintptr_t>(set));
}

} // namespace

DeviceInfoSet SetupDiGetClassDevsW(const Guid& interfaceClass, std::uint32_t flags) {
    Call call(Operation::SetupDiGetClassDevsW);
    call.Note([&] { return "flags " + std::to_string(flags); });
    if (call.Refused() || flags != OnlyPresentInterfaces) {
        machine::SetLastError(call.Refused() ? call.RefusalCode() : error::InvalidParameter);
        return call.Answered(DeviceInfoSet::Invalid);
    }
    const std::uintptr_t number = Current().gate.Opened("device information set");
    Current().deviceInfoSets[number] = interfaceClass == BatteryClass ? Current().batteries.size() : 0;
    return call.Answered(DeviceInfoSet{number});
}

bool SetupDiEnumDeviceInterfaces(DeviceInfoSet set, const Guid& interfaceClass, std::uint32_t index,
                                 DeviceInterfaceData& data) {
    Call call(Operation::SetupDiEnumDeviceInterfaces);
    call.Note([&] { return "index " + std::to_string(index); });
    if (!IsOpen(set)) {
        return Failed(call, error::InvalidHandle);
    }
    const std::size_t count = Current().deviceInfoSets[static_cast<std::uintptr_t>(set)];
    if (call.Refused() || index >= count || interfaceClass != BatteryClass) {
        return Failed(call, error::NoMoreItems);
    }
    data = {.interfaceClass = interfaceClass, .flags = 1, .reserved = index};
    return call.Answered(true);
}

bool SetupDiGetDeviceInterfaceDetailW(DeviceInfoSet set, const DeviceInterfaceData& data,
                                      std::span<std::byte> detail, std::uint32_t& requiredSize) {
    constexpr std::uint32_t FixedPart = 8;
    constexpr std::size_t PathAt = 4;
    constexpr SystemError BadBuffer = 1784; // ERROR_INVALID_USER_BUFFER
    Call call(Operation::SetupDiGetDeviceInterfaceDetailW);
    call.Note([&] { return "room " + std::to_string(detail.size()); });
    if (call.Refused() || !IsOpen(set)) {
        return Failed(call, call.Refused() ? call.RefusalCode() : error::InvalidHandle);
    }
    const std::u16string path = BatteryDevice::PathOf(data.reserved);
    const std::size_t pathBytes = (path.size() + 1) * sizeof(char16_t);
    requiredSize = static_cast<std::uint32_t>(PathAt + pathBytes);
    if (detail.size() < requiredSize) {
        return Failed(call, error::InsufficientBuffer);
    }
    std::uint32_t fixedPart = 0;
    std::memcpy(&fixedPart, detail.data(), sizeof fixedPart);
    if (fixedPart != FixedPart) {
        return Failed(call, BadBuffer);
    }
    std::memcpy(detail.data() + PathAt, path.c_str(), pathBytes);
    call.Note([&] { return machine::Utf8FromWide(path); });
    return call.Answered(true);
}

void SetupDiDestroyDeviceInfoList(DeviceInfoSet set) {
    const Call call(Operation::SetupDiDestroyDeviceInfoList);
    const auto number = static_cast<std::uintptr_t>(set);
    Current().gate.Closed(number);
    Current().deviceInfoSets.erase(number);
}

} // namespace VESK_BACK_END
