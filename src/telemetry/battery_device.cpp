#include "telemetry/battery_device.h"

#include "frame/memory_guard.h"
#include "platform/battery.h"
#include "platform/device_interfaces.h"
#include "platform/device_io.h"

#include <cstring>
#include <span>
#include <string>
#include <vector>

namespace sondrel {
namespace {

/// The path in a detail block, up to its terminator or the end of the block.
std::u16string PathOf(std::span<const std::byte> detail) {
    const auto path = detail.subspan(platform::device_interface::DetailPathOffset);
    std::u16string text(path.size() / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), path.data(), text.size() * sizeof(char16_t));
    return text.substr(0, text.find(u'\0'));
}

/// The detail block of the first present battery device; empty if there is none.
std::vector<std::byte> FirstBatteryDetail(platform::DeviceInfoSet set) {
    using namespace platform;
    DeviceInterfaceData first;
    if (!SetupDiEnumDeviceInterfaces(set, BatteryDeviceClass, 0, first)) {
        return {};
    }
    std::uint32_t size = 0;
    if (SetupDiGetDeviceInterfaceDetailW(set, first, {}, size) ||
        GetLastError() != error::InsufficientBuffer || size < device_interface::DetailSize) {
        return {};
    }
    std::vector<std::byte> detail(size);
    std::memcpy(detail.data(), &device_interface::DetailSize, sizeof device_interface::DetailSize);
    if (!SetupDiGetDeviceInterfaceDetailW(set, first, detail, size)) {
        return {};
    }
    return detail;
}

template <class In, class Out>
bool SendIoctl(platform::Handle battery, std::uint32_t code, const In& in, Out& out) {
    std::uint32_t returned = 0;
    return platform::DeviceIoControl(battery, code, std::as_bytes(std::span(&in, 1)),
                                     std::as_writable_bytes(std::span(&out, 1)), returned);
}

void ReadBattery(platform::Handle battery, BatteryRecord& record) {
    using namespace platform;
    constexpr std::uint32_t NoWait = 0;
    std::uint32_t tag = 0;
    if (!SendIoctl(battery, battery_request::QueryTag, NoWait, tag) || tag == 0) {
        return;
    }
    const BatteryQuery query{.tag = tag, .level = BatteryInformationLevel, .rate = 0};
    BatteryInformation information{};
    if (!SendIoctl(battery, battery_request::QueryInformation, query, information)) {
        return;
    }
    record.designedCapacity = information.designedCapacity;
    record.fullChargedCapacity = information.fullChargedCapacity;
    record.cycleCount = information.cycleCount;
    if (record.designedCapacity != 0) {
        record.healthRatio =
            static_cast<float>(record.fullChargedCapacity) / static_cast<float>(record.designedCapacity);
    }
    if ((information.capabilities & BatterySystemBattery) == 0) {
        return;
    }
    const BatteryWaitStatus wait{.tag = tag, .timeout = NoWait};
    BatteryStatus status{};
    if (SendIoctl(battery, battery_request::QueryStatus, wait, status)) {
        record.capacity = status.capacity;
        record.voltage = status.voltage;
    }
}

BatteryRecord ReadFirstBattery() {
    using namespace platform;
    BatteryRecord record;
    // Released in reverse order: the file, the detail block, the set.
    const OwnedDeviceInfoSet set(
        SetupDiGetClassDevsW(BatteryDeviceClass, device_interface::PresentInterfaces));
    if (!set) {
        return record;
    }
    const std::vector<std::byte> detail = FirstBatteryDetail(set.Get());
    if (detail.empty()) {
        return record;
    }
    const OwnedFile battery(CreateFileW(PathOf(detail).c_str(), access::GenericReadWrite, share::ReadWrite,
                                        OpenExisting, FileAttributeNormal));
    if (battery) {
        ReadBattery(battery.Get(), record);
    }
    return record;
}

} // namespace

BatteryRecord ReadBatteryDevice() {
    return OnOutOfMemory(BatteryRecord{}, ReadFirstBattery);
}

std::uint32_t RoundedPercentage(std::uint32_t capacity, std::uint32_t fullChargedCapacity) {
    constexpr float Above32Bits = 4294967296.0F;
    constexpr std::uint32_t LargestMultipleOfTen = 4294967290;
    if (fullChargedCapacity == 0) {
        return 0;
    }
    const float quotient = static_cast<float>(capacity) / static_cast<float>(fullChargedCapacity) * 100.0F;
    if (quotient >= Above32Bits) {
        return LargestMultipleOfTen;
    }
    // Rounding up cannot overflow: the next smaller float is 256 below the bound.
    const auto percent = static_cast<std::uint32_t>(quotient);
    const std::uint32_t rest = percent % 10;
    return rest < 5 ? percent - rest : percent + (10 - rest);
}

} // namespace sondrel
