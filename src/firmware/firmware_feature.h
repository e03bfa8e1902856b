// What the firmware's features have in common: a device id and a settings file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace sondrel {

struct FirmwareFeature {
    const char16_t* deviceId; // in decimal, as the firmware's class takes it
    const char16_t* fileName; // with a leading separator
};

inline constexpr FirmwareFeature BatteryHealth{u"1179735", u"\\BatteryHealthSetting.txt"};
inline constexpr FirmwareFeature QuietFan{u"1114137", u"\\QuietFanSetting.txt"};

/// The firmware's answer for a feature that exists. For Quiet Fan it also means off.
inline constexpr const char16_t* FeatureSupported = u"65536";
inline constexpr const char16_t* FeatureSupportedAndOn = u"65537";

/// The firmware's answer about a feature; empty when the call failed. `tag` is the export's tag in the log.
std::u16string FeatureStatus(const FirmwareFeature& feature, std::string_view tag, std::uint8_t initCom);

/// Sets a feature in the firmware. If that succeeded and the app path is a directory, `number` is stored in the
/// settings file. False when the firmware did not accept the setting.
bool SetFeature(const FirmwareFeature& feature, std::string_view tag, std::u16string controlStatus,
                std::int32_t number, std::uint8_t initCom);

/// The path of the settings file: the app path, or the registry sentinel if there is none, and the file name.
std::u16string SettingPath(const FirmwareFeature& feature, std::string_view tag, std::uint8_t initCom);

} // namespace sondrel
