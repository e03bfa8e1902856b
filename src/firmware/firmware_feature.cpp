#include "firmware/firmware_feature.h"

#include "firmware/app_path.h"
#include "firmware/firmware_method.h"
#include "firmware/settings_file.h"
#include "frame/diagnostics.h"
#include "frame/memory_guard.h"
#include "frame/text.h"

#include <utility>

namespace sondrel {
namespace {

/// False without an app path.
bool Store(const FirmwareFeature& feature, std::string_view tag, std::int32_t number, std::uint8_t initCom) {
    if (!WMICheckAppExist(initCom)) {
        return false;
    }
    const std::u16string path = SettingPath(feature, tag, initCom);
    WriteSetting(path, number);
    TraceLine([&] {
        return std::string(tag) + " set " + std::to_string(number) + " to " + WideToUtf8Bounded(path);
    });
    return true;
}

} // namespace

std::u16string FeatureStatus(const FirmwareFeature& feature, std::string_view tag, std::uint8_t initCom) {
    std::u16string answer = wmiMethod(u"DSTS", {{u"Device_ID", feature.deviceId}}, u"device_status", initCom);
    TraceLine([&] { return std::string(tag) + " output is " + WideToUtf8Bounded(answer); });
    return answer;
}

bool SetFeature(const FirmwareFeature& feature, std::string_view tag, std::u16string controlStatus,
                std::int32_t number, std::uint8_t initCom) {
    const std::u16string answer =
        wmiMethod(u"DEVS", {{u"Device_ID", feature.deviceId}, {u"Control_status", std::move(controlStatus)}},
                  u"result", initCom);
    TraceLine([&] { return std::string(tag) + " output is " + WideToUtf8Bounded(answer); });
    if (!EqualIgnoringCase(answer, u"1")) {
        return false;
    }
    // The firmware has the setting now, even if the settings file cannot be written.
    OnOutOfMemory(false, [&] { return Store(feature, tag, number, initCom); });
    return true;
}

std::u16string SettingPath(const FirmwareFeature& feature, std::string_view tag, std::uint8_t initCom) {
    std::u16string path = WMIGetAppPath(initCom) + feature.fileName;
    TraceLine([&] { return std::string(tag) + " fname is " + WideToUtf8Bounded(path); });
    return path;
}

} // namespace sondrel
