// The operating system in one line: caption, architecture, version.
#include "frame/diagnostics.h"
#include "frame/host_buffer.h"
#include "platform/system_information.h"
#include "vesk_sondrel.h"
#include "wmi/wmi_readers.h"

#include <string>

namespace sondrel {
namespace {

std::u16string ReadOsProperty(const char16_t* property, std::uint8_t initCom) {
    return ReadWMIPropStr(u"ROOT\\CIMV2", u"select * from Win32_OperatingSystem", property, initCom);
}

/// "10.0.19041"; the numbers are 0 if RtlGetVersion is missing.
std::u16string OsVersionString() {
    platform::OsVersion version{.infoSize = platform::OsVersionInfoExSize};
    platform::RtlGetVersion(version);
    std::string text = std::to_string(static_cast<std::int32_t>(version.major));
    for (const std::uint32_t number : {version.minor, version.build}) {
        text += '.';
        text += std::to_string(static_cast<std::int32_t>(number));
    }
    return {text.begin(), text.end()};
}

std::u16string DescribeOs(std::uint8_t initCom) {
    const std::u16string caption = ReadOsProperty(u"Caption", initCom);
    const std::u16string architecture = ReadOsProperty(u"OSArchitecture", initCom);
    const std::u16string version = OsVersionString();
    // A version alone does not say which system it is.
    return caption.empty() && architecture.empty() ? std::u16string()
                                                   : caption + u' ' + architecture + u' ' + version;
}

} // namespace
} // namespace sondrel

using namespace sondrel;

void WMIGetOSInfo(VeskChar16* out, uint8_t initCom) {
    TraceLine("WMIGetOSInfo Start");
    AnswerWith(out, [=] { return DescribeOs(initCom); });
    TraceLine("WMIGetOSInfo End");
}
