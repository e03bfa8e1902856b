// Quiet Fan: on or off in the firmware, one of several levels in the settings file.
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

constexpr std::int32_t NotSupported = -1;
constexpr std::int32_t Off = 0;
constexpr std::int32_t HighestLevel = 3;

std::int32_t FirmwareState(std::uint8_t initCom) {
    constexpr std::string_view Tag = "[WMICheckQuietFanSupport]";
    const std::u16string answer = FeatureStatus(QuietFan, Tag, initCom);
    if (EqualIgnoringCase(answer, FeatureSupported)) {
        TraceLine([=] { return std::string(Tag) + " Quiet Fan Off"; });
        return 0;
    }
    if (EqualIgnoringCase(answer, FeatureSupportedAndOn)) {
        TraceLine([=] { return std::string(Tag) + " Quiet Fan On"; });
        return 1;
    }
    TraceLine([=] { return std::string(Tag) + " Not Support Quiet Fan"; });
    return NotSupported;
}

std::int32_t StoredFanLevel(std::uint8_t initCom) {
    constexpr std::string_view Tag = "[WMIGetQuietFan]";
    const std::u16string path = SettingPath(QuietFan, Tag, initCom);
    std::int32_t level = Off;
    if (WMICheckAppExist(initCom)) {
        const platform::OwnedFile file = OpenSetting(path); // closed after the line
        level = ReadSetting(file, Off);
        TraceLine([=] { return std::string(Tag) + " Quiet Fan is " + std::to_string(level); });
    }
    if (level < 1 || level > HighestLevel) {
        TraceLine([=] { return std::string(Tag) + " Quiet Fan Off"; });
        return Off;
    }
    TraceLine([=] { return std::string(Tag) + " Quiet Fan On"; });
    return level;
}

bool SetQuietFan(std::uint8_t level, std::uint8_t initCom) {
    return SetFeature(QuietFan, "[WMISetQuietFan]", level == 0 ? u"0" : u"1", level, initCom);
}

} // namespace
} // namespace sondrel

using namespace sondrel;

int32_t WMICheckQuietFanSupport(uint8_t initCom) {
    return OnOutOfMemory(NotSupported, [=] { return FirmwareState(initCom); });
}

int32_t WMIGetQuietFan(uint8_t initCom) {
    return OnOutOfMemory(Off, [=] { return StoredFanLevel(initCom); });
}

int32_t WMISetQuietFan(uint8_t value, uint8_t initCom) {
    return OnOutOfMemory(false, [=] { return SetQuietFan(value, initCom); }) ? 1 : 0;
}
