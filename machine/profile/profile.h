// A machine profile: one plain record for each service, in the field's own terms.
#pragma once

#include "machine/profile/profile_reader.h"
#include "machine/profile/sections/course_profile.h"
#include "machine/profile/sections/desktop_profile.h"
#include "machine/profile/sections/disk_profile.h"
#include "machine/profile/sections/driver_profile.h"
#include "machine/profile/sections/ec_profile.h"
#include "machine/profile/sections/firmware_profile.h"
#include "machine/profile/sections/power_profile.h"
#include "machine/profile/sections/radio_profile.h"
#include "machine/profile/sections/software_profile.h"
#include "machine/profile/sections/system_profile.h"
#include "machine/profile/sections/wmi_profile.h"

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace machine {

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

/// A profile cannot be used: "x.json: /ec/chip_id: expected a number from 0 to 255". The message has the first
/// issue and the number of the others.
class ProfileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The whole grammar: reads a profile's text and adds every error to `issues`. With an issue the profile is not to
/// be used.
Profile ReadProfile(std::string_view text, ProfileIssues& issues);

/// Reads a profile's text. `source` names it in errors. Throws ProfileError.
Profile ParseProfile(std::string_view text, const std::string& source);

/// Reads a profile by the name of a built-in machine or by its file. Throws ProfileError.
Profile LoadProfile(const std::string& nameOrFile);

} // namespace machine
