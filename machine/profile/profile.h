// A machine profile: one plain record for each service, in the field's own terms.
#pragma once

#include "machine/profile/acpi_profile.h"
#include "machine/profile/battery_profile.h"
#include "machine/profile/bluetooth_profile.h"
#include "machine/profile/course_profile.h"
#include "machine/profile/desktop_profile.h"
#include "machine/profile/device_nodes_profile.h"
#include "machine/profile/ec_profile.h"
#include "machine/profile/files_profile.h"
#include "machine/profile/firmware_features_profile.h"
#include "machine/profile/firmware_variables_profile.h"
#include "machine/profile/network_profile.h"
#include "machine/profile/packages_profile.h"
#include "machine/profile/system_power_profile.h"
#include "machine/profile/system_profile.h"
#include "machine/profile/wifi_profile.h"
#include "machine/profile/wmi_profile.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace machine {

/// Who else has the I/O driver open, and how.
enum class DriverHolder : std::uint8_t { Nobody, Sharing, Alone };

struct DriverProfile {
    bool present = true;
    DriverHolder heldBy = DriverHolder::Nobody;
    std::uint32_t version = 0;
    std::uint32_t refCount = 0;
};

struct CpuIdLeaf {
    std::uint32_t eax, ebx, ecx, edx;
};

struct ProcessorProfile {
    std::string vendor; // twelve letters
    std::map<std::uint32_t, CpuIdLeaf> leaves;
    std::uint32_t packagePower = 0;
    std::uint32_t powerLimit1 = 0;
    std::uint32_t powerLimit2 = 0;
};

struct RegistryValue {
    std::u16string key; // with the hive's short name in front: HKLM\SOFTWARE\...
    std::u16string name;
    std::uint32_t type = 0;
    std::vector<std::byte> data;
};

struct RegistryProfile {
    std::vector<std::u16string> keys; // keys without values
    std::vector<RegistryValue> values;
    std::vector<std::u16string> readOnly; // keys below which nothing may be written
};

struct Profile {
    std::string name;
    std::string description;
    EcProfile ec;
    DriverProfile driver;
    ProcessorProfile processor;
    std::vector<BatteryProfile> batteries;
    SystemPowerProfile systemPower;
    std::optional<CourseProfile> course;
    RegistryProfile registry;
    NetworkProfile network;
    WifiProfile wifi;
    BluetoothProfile bluetooth;
    AcpiProfile acpi;
    FirmwareVariablesProfile firmwareVariables;
    FirmwareFeaturesProfile firmwareFeatures;
    FilesProfile files;
    PackagesProfile packages;
    std::vector<DeviceNodeProfile> deviceNodes;
    std::vector<ProcessProfile> processes;
    std::vector<WindowProfile> windows;
    WmiProfile wmi;
    SystemProfile system;
    AudioProfile audio;
    std::uint64_t digest = 0; // of the profile's text: a changed profile is another machine
};

/// A text as the registry keeps it: UTF-16 with a terminator.
std::vector<std::byte> TextData(std::u16string text);

/// Reads a profile's text. `source` names it in errors. Throws ProfileError.
Profile ParseProfile(std::string_view text, const std::string& source);

/// Reads a profile by the name of a built-in machine or by its file. Throws ProfileError.
Profile LoadProfile(const std::string& nameOrFile);

/// The names of the built-in machines; the first is the default.
std::vector<std::string> BuiltInMachines();

} // namespace machine
