// What the firmware's features have in common: a number by which the firmware knows them, and a settings file.
#pragma once

#include <cstdint>
#include <string>

namespace sondrel {

struct FirmwareFeature {
    const char16_t* deviceId; // in decimal, as the firmware's class takes it
    const char16_t* fileName; // with the separator in front
};

inline constexpr FirmwareFeature BatteryHealth{u"1179735", u"\\BatteryHealthSetting.txt"};
inline constexpr FirmwareFeature QuietFan{u"1114137", u"\\QuietFanSetting.txt"};

/// What the firmware answers when a feature exists. For Quiet Fan it says too that it is off.
inline constexpr const char16_t* FeatureSupported = u"65536";
inline constexpr const char16_t* FeatureSupportedAndOn = u"65537";

/// The firmware's answer about a feature; empty when the call failed. `tag` names the asking export in the log.
std::u16string FeatureStatus(const FirmwareFeature& feature, const std::string& tag, std::uint8_t initCom);

/// Gives the firmware a setting and, where it took it and the app path names a directory, remembers `number` in
/// the settings file. False when the firmware did not take it.
bool SetFeature(const FirmwareFeature& feature, const std::string& tag, std::u16string controlStatus,
                std::int32_t number, std::uint8_t initCom);

/// The path of the settings file as the app path stands now, which may be none.
std::u16string SettingPath(const FirmwareFeature& feature, const std::string& tag, std::uint8_t initCom);

} // namespace sondrel
