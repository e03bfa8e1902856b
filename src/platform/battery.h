// The battery class: its device interface and its IOCTLs.
#pragma once

#include "platform/types.h"

namespace platform {

inline constexpr Guid BatteryDeviceClass{// GUID_DEVICE_BATTERY
                                         0x72631E54,
                                         0x78A4,
                                         0x11D0,
                                         {0xBC, 0xF7, 0x00, 0xAA, 0x00, 0xB7, 0xB3, 0x2A}};

namespace battery_request {
inline constexpr std::uint32_t QueryTag = 0x294040;         // IOCTL_BATTERY_QUERY_TAG
inline constexpr std::uint32_t QueryInformation = 0x294044; // IOCTL_BATTERY_QUERY_INFORMATION
inline constexpr std::uint32_t QueryStatus = 0x29404C;      // IOCTL_BATTERY_QUERY_STATUS
} // namespace battery_request

inline constexpr std::uint32_t BatteryInformationLevel = 0;       // BatteryInformation
inline constexpr std::uint32_t BatterySystemBattery = 0x80000000; // BATTERY_SYSTEM_BATTERY

/// BATTERY_QUERY_INFORMATION
struct BatteryQuery {
    std::uint32_t tag;
    std::uint32_t level;
    std::int32_t rate;
};

/// BATTERY_INFORMATION
struct BatteryInformation {
    std::uint32_t capabilities;
    std::uint8_t technology;
    std::uint8_t reserved[3];
    std::uint8_t chemistry[4];
    std::uint32_t designedCapacity;
    std::uint32_t fullChargedCapacity;
    std::uint32_t defaultAlert1;
    std::uint32_t defaultAlert2;
    std::uint32_t criticalBias;
    std::uint32_t cycleCount;
};

/// BATTERY_WAIT_STATUS
struct BatteryWaitStatus {
    std::uint32_t tag;
    std::uint32_t timeout;
    std::uint32_t powerState;
    std::uint32_t lowCapacity;
    std::uint32_t highCapacity;
};

/// BATTERY_STATUS
struct BatteryStatus {
    std::uint32_t powerState;
    std::uint32_t capacity;
    std::uint32_t voltage;
    std::int32_t rate;
};

static_assert(sizeof(BatteryQuery) == 12 && sizeof(BatteryInformation) == 36);
static_assert(sizeof(BatteryWaitStatus) == 20 && sizeof(BatteryStatus) == 16);

} // namespace platform
