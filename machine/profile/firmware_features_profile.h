// The firmware's switchable features, as a profile describes them.
#pragma once

#include <cstdint>
#include <string>

namespace machine {

class ProfileReader;

struct FeatureProfile {
    std::u16string name; // under which the firmware keeps the setting
    bool supported = false;
    bool tellsSetting = false; // the status has the setting in its lowest bit
    std::uint32_t setting = 0; // as it comes from the factory
    std::uint32_t result = 1;  // what the firmware answers when it is given a setting
};

struct FirmwareFeaturesProfile {
    FeatureProfile batteryHealth{.name = u"BatteryHealth", .setting = 100};
    FeatureProfile quietFan{.name = u"QuietFan", .tellsSetting = true};
};

FirmwareFeaturesProfile ReadFirmwareFeatures(ProfileReader reader);

} // namespace machine
