#include "machine/models/battery_device.h"

namespace machine {
namespace {

// Device type 0x29, function numbers 0x10, 0x11 and 0x13, buffered, for readers.
constexpr std::uint32_t BatteryRequest(std::uint32_t function) {
    constexpr std::uint32_t DeviceType = 0x29;
    constexpr std::uint32_t ReadAccess = 1;
    return DeviceType << 16 | ReadAccess << 14 | function << 2;
}

constexpr std::uint32_t RequestTag = BatteryRequest(0x10);
constexpr std::uint32_t RequestInformation = BatteryRequest(0x11);
constexpr std::uint32_t RequestStatus = BatteryRequest(0x13);

constexpr platform::SystemError InvalidFunction = 1;
constexpr platform::SystemError NoSuchBattery = platform::error::FileNotFound;
constexpr platform::SystemError BadLength = platform::error::InvalidParameter;

} // namespace

std::u16string BatteryDevice::PathOf(std::size_t index) {
    const auto digit = static_cast<char16_t>(u'0' + index % 10);
    return std::u16string(u"\\\\?\\acpi#pnp0c0a#") + digit + u"#{72631e54-78a4-11d0-bcf7-00aa00b7b32a}";
}

platform::SystemError BatteryDevice::Open(std::uint32_t access, std::uint32_t shareMode) {
    constexpr std::uint32_t GenericRead = 0x80000000;
    constexpr std::uint32_t ShareBoth = 3;
    // The operating system itself has the device open, for reading and writing.
    const bool shares = (shareMode & ShareBoth) == ShareBoth;
    return shares && (access & GenericRead) != 0 ? platform::error::Success : platform::error::AccessDenied;
}

ControlAnswer BatteryDevice::Control(std::uint32_t code, std::span<const std::byte> in, std::size_t outSize) {
    switch (code) {
    case RequestTag:
        if (in.size() != 4 || outSize < 4) {
            return {BadLength};
        }
        return m_profile.tag == 0 ? ControlAnswer{NoSuchBattery} : Words({m_profile.tag});
    case RequestInformation:
        return Information(in, outSize);
    case RequestStatus:
        return Status(in, outSize);
    default:
        return {InvalidFunction};
    }
}

ControlAnswer BatteryDevice::Information(std::span<const std::byte> in, std::size_t outSize) const {
    constexpr std::size_t RequestSize = 12;
    constexpr std::size_t AnswerSize = 36;
    if (in.size() != RequestSize || outSize < AnswerSize) {
        return {BadLength};
    }
    if (WordAt(in, 0) != m_profile.tag) {
        return {NoSuchBattery};
    }
    if (WordAt(in, 4) != 0) {
        return {InvalidFunction};
    }
    // Reports its capacity and can be charged and discharged.
    constexpr std::uint32_t OrdinaryCapabilities = 0x60000000;
    constexpr std::uint32_t SystemBattery = 0x80000000;
    constexpr std::uint32_t Rechargeable = 1;
    constexpr std::uint32_t LithiumIon = 0x6E6F694C; // "Lion"
    const std::uint32_t capabilities = OrdinaryCapabilities | (m_profile.systemBattery ? SystemBattery : 0);
    return Words({capabilities, Rechargeable, LithiumIon, m_profile.designedCapacity,
                  m_profile.fullChargedCapacity, m_profile.fullChargedCapacity / 20,
                  m_profile.fullChargedCapacity / 10, 0, m_profile.cycleCount});
}

ControlAnswer BatteryDevice::Status(std::span<const std::byte> in, std::size_t outSize) const {
    constexpr std::size_t RequestSize = 20;
    constexpr std::size_t AnswerSize = 16;
    if (in.size() != RequestSize || outSize < AnswerSize) {
        return {BadLength};
    }
    if (WordAt(in, 0) != m_profile.tag) {
        return {NoSuchBattery};
    }
    constexpr std::uint32_t Discharging = 2;
    constexpr std::uint32_t UnknownRate = 0x80000000;
    return Words({Discharging, m_profile.capacity, m_profile.voltage, UnknownRate});
}

} // namespace machine
