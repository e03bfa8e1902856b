// The operating system of a profile: its version, the user's settings, the audio endpoint, and the lists of network
// adapters and devices that it keeps.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace machine {

class ProfileReader;
struct RegistryProfile;

struct OsVersionProfile {
    std::uint32_t major = 10;
    std::uint32_t minor = 0;
    std::uint32_t build = 19045;
};

struct SystemProfile {
    /// Nothing: a system without RtlGetVersion.
    std::optional<OsVersionProfile> version = OsVersionProfile{};

    bool hasWldp = true;          // "wldp.dll" exists
    bool hasLockdownQuery = true; // with the routine in it
    std::uint32_t lockdownMode = 0;

    std::u16string country; // two letters; empty: the user has set none

    std::int64_t startTime = 1704067200; // 2024-01-01: seconds since 1970 in UTC when the machine starts
    std::int32_t utcOffsetMinutes = 0;   // local time is that much ahead
};

struct AudioProfile {
    bool present = false; // there is a default audio device
    float volume = 0.0F;  // 0 to 1
    bool muted = false;
};

struct AdapterProfile {
    std::uint32_t index = 0;
    std::uint32_t type = 6; // a number of the interface type registry: Ethernet
};

struct NetworkProfile {
    std::vector<AdapterProfile> adapters;
    std::vector<AdapterProfile> arriving; // one of them is plugged in after each query of the list
};

/// A device as the configuration manager describes it.
struct DeviceNodeProfile {
    std::u16string id;
    bool present = true;
    std::optional<std::u16string> description;
    std::optional<std::u16string> driverKey;
};

void ReadSystem(ProfileReader& reader, SystemProfile& system);
void ReadAudio(ProfileReader& reader, AudioProfile& audio);
void ReadNetwork(ProfileReader& reader, NetworkProfile& network);

/// A device has an "id" and may have "present", "description", "driver_key" and "driver_version", which goes to
/// the registry.
void ReadDeviceNode(ProfileReader& reader, DeviceNodeProfile& device, RegistryProfile& registry);

} // namespace machine
