// Devices of a profile, as the configuration manager tells of them.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace machine {

class ProfileReader;
struct RegistryProfile;

struct DeviceNodeProfile {
    std::u16string id;
    bool present = true;
    std::optional<std::u16string> description;
    std::optional<std::u16string> driverKey;
};

/// Reads a list of devices. Each has an "id" and may have "present", "description", "driver_key" and
/// "driver_version", which goes to the registry.
std::vector<DeviceNodeProfile> ReadDeviceNodes(std::vector<ProfileReader> readers, RegistryProfile& registry);

} // namespace machine
