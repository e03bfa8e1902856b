// The JSON document of two settings: brightness and volume.
#include "frame/diagnostics.h"
#include "frame/host_buffer.h"
#include "system/system_readings.h"
#include "vesk_sondrel.h"
#include "wmi/wmi_query.h"
#include "wmi/wmi_values.h"

#include <string>

namespace sondrel {
namespace {

/// The brightness of the last display that reports one, in decimal. Empty if none does or a step failed.
std::u16string ReadWMIBrightness(std::u16string nameSpace, std::u16string query, std::uint8_t initCom) {
    std::u16string brightness;
    WalkWmiQuery(WmiReader::Brightness, nameSpace, query, initCom, [&](platform::WbemObject row) {
        const platform::WmiValue value = ReadWmiProperty(row, u"CurrentBrightness");
        if (NumberOf(value)) {
            brightness = NumberStringOf(value);
        }
    });
    return brightness;
}

std::u16string SettingsDocument() {
    const std::u16string brightness =
        ReadWMIBrightness(u"ROOT\\WMI", u"select * from WmiMonitorBrightness", 1);
    const std::u16string volume = getvolume();
    return u"{\"brightness\":\"" + brightness + u"\",\"volume\":\"" + volume + u"\"}";
}

} // namespace
} // namespace sondrel

using namespace sondrel;

void AppList_HardwareConfig(VeskChar16* out) {
    TraceLine("AppList_HardwareConfig start");
    AnswerWith(out, SettingsDocument, u"{\"brightness\":\"\",\"volume\":\"\"}");
    TraceLine("AppList_HardwareConfig end");
}
