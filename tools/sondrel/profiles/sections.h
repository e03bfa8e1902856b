// The sections of a profile that is made from a recording. Each function adds what the recording shows to the profile,
// and what a profile cannot say to `leftOut`.
#pragma once

#include "profiles/evidence.h"

#include <set>

namespace tool {

using RecordedExports = std::vector<observer::RecordedExport>;

/// "ec": the identity and the measurements, from the answers of the exports; commands that the EC refuses.
void AddEc(const RecordedExports& exports, ProfileJson& profile, LeftOut& leftOut);

/// "driver", "processor", "batteries", "acpi".
void AddDevices(const RecordedExports& exports, ProfileJson& profile, LeftOut& leftOut);

/// The subkeys of the list of packages are returned: they belong to the packages.
std::vector<std::u16string> AddRegistry(const RecordedExports& exports, ProfileJson& profile,
                                        LeftOut& leftOut);

/// "packages", "pnp_devices".
void AddSoftware(const RecordedExports& exports, const std::vector<std::u16string>& stored,
                 ProfileJson& profile, LeftOut& leftOut);

/// "network", "wifi", "bluetooth".
void AddRadios(const RecordedExports& exports, ProfileJson& profile, LeftOut& leftOut);

/// "wmi", "firmware_features".
void AddWmi(const RecordedExports& exports, ProfileJson& profile, LeftOut& leftOut);

/// "system", "audio", "system_power", "firmware_variables", "files".
void AddSystem(const RecordedExports& exports, ProfileJson& profile, LeftOut& leftOut);

} // namespace tool
