// Battery Health: a number that the firmware is given and the settings file stores.
#include "firmware/app_path.h"
#include "firmware/firmware_feature.h"
#include "firmware/settings_file.h"
#include "frame/diagnostics.h"
#include "frame/memory_guard.h"
#include "frame/text.h"
#include "vesk_sondrel.h"

#include <string>
#include <string_view>

namespace sondrel {
namespace {

constexpr std::int32_t Default = 100;

bool IsSupported(std::uint8_t initCom) {
    constexpr std::string_view Tag = "[WMICheckBatteryHealthSupport]";
    const bool supported = EqualIgnoringCase(FeatureStatus(BatteryHealth, Tag, initCom), FeatureSupported);
    TraceLine([=] {
        return std::string(Tag) + (supported ? " Support Battery Health" : " Not Support Battery Health");
    });
    return supported;
}

std::int32_t StoredBatteryHealth(std::uint8_t initCom) {
    constexpr std::string_view Tag = "[WMIGetBatteryHealth]";
    const std::u16string path = SettingPath(BatteryHealth, Tag, initCom);
    if (!WMICheckAppExist(initCom)) {
        return Default;
    }
    const platform::OwnedFile file = OpenSetting(path); // closed after the line
    const std::int32_t level = ReadSetting(file, Default);
    TraceLine([=] { return std::string(Tag) + " BatteryHealth is " + std::to_string(level); });
    return level;
}

bool SetBatteryHealth(std::int32_t level, std::uint8_t initCom) {
    if (!IsSupported(initCom)) {
        return false;
    }
    return SetFeature(BatteryHealth, "[WMISetBatteryHealth]", DecimalText(level), level, initCom);
}

} // namespace
} // namespace sondrel

using namespace sondrel;

int32_t WMICheckBatteryHealthSupport(uint8_t initCom) {
    return OnOutOfMemory(false, [=] { return IsSupported(initCom); }) ? 1 : 0;
}

int32_t WMIGetBatteryHealth(uint8_t initCom) {
    return OnOutOfMemory(Default, [=] { return StoredBatteryHealth(initCom); });
}

int32_t WMISetBatteryHealth(int32_t value, uint8_t initCom) {
    return OnOutOfMemory(false, [=] { return SetBatteryHealth(value, initCom); }) ? 1 : 0;
}
