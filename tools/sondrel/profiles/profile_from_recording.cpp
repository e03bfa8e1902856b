#include "profiles/profile_from_recording.h"

#include "base/error.h"
#include "machines/profile_check.h"
#include "profiles/sections.h"

#include <algorithm>

namespace tool {
namespace {

using observer::Operation;
using observer::RecordedCall;
using observer::RecordedExport;

/// A failure that a simulated machine has too where its profile lacks the thing.
struct ExpectedFailure {
    Operation operation;
    std::uint32_t code;
};

constexpr std::uint32_t AnyCode = 0xFFFFFFFF;

constexpr ExpectedFailure ExpectedFailures[] = {
    {Operation::CreateFileW, 2},
    {Operation::CreateFileW, 3},
    {Operation::CreateFileW, 32},
    {Operation::DeviceIoControl, AnyCode}, // the devices look at their own
    {Operation::RegOpenKeyExW, 2},
    {Operation::RegQueryValueExW, 2},
    {Operation::RegQueryValueExW, 6}, // of a key that could not be opened
    {Operation::RegEnumKeyExW, 259},
    {Operation::SetupDiEnumDeviceInterfaces, 259},
    {Operation::SetupDiGetDeviceInterfaceDetailW, 122},
    {Operation::GetFirmwareEnvironmentVariableW, 203},
    {Operation::GetFirmwareEnvironmentVariableW, 1314},
    {Operation::GetFileAttributesW, 2},
    {Operation::GetFileAttributesW, 3},
    {Operation::ConnectServer, 0x8004100E},
    {Operation::Next, 0x80041010},
    {Operation::GetObject, 0x80041002},
    {Operation::Get, 0x80041002},
    {Operation::RtlGetVersion, AnyCode},
    {Operation::LoadLibraryW, 126},
    {Operation::WldpQueryWindowsLockdownMode, 0x8007007F},
    {Operation::GetUserGeoID, AnyCode},
    {Operation::GetGeoInfoW, 87},
    {Operation::GetDefaultAudioEndpoint, 0x80070490},
    {Operation::GetAdaptersInfo, 111},
    {Operation::GetAdaptersInfo, 232},
    {Operation::WlanOpenHandle, 126},
    {Operation::WlanOpenHandle, 1062},
    {Operation::WlanQueryInterface, 50}, // not every card knows its channel
    {Operation::BluetoothFindFirstRadio, 126},
    {Operation::BluetoothFindFirstRadio, 259},
    {Operation::BluetoothFindNextRadio, 259},
    {Operation::BluetoothFindFirstDevice, 259},
    {Operation::BluetoothFindNextDevice, 259},
    {Operation::GetPackagesByPackageFamily, 122},
    {Operation::GetPackagesByPackageFamily, 127},
    {Operation::SHLoadIndirectString, AnyCode},
    {Operation::CM_Get_DevNode_Registry_PropertyW, 37},
};

bool IsExpected(const RecordedCall& call) {
    return std::ranges::any_of(ExpectedFailures, [&](const ExpectedFailure& each) {
        return each.operation == call.operation && (each.code == AnyCode || each.code == FailureOf(call));
    });
}

/// Calls that failed otherwise, never ended or are not complete.
void LeaveOutFailures(const RecordedExports& exports, LeftOut& leftOut) {
    for (const RecordedExport& recorded : exports) {
        if (recorded.returnLine == 0) {
            leftOut.Add(recorded.name, "it never returned");
        }
        for (const RecordedCall& call : recorded.calls) {
            const std::string place =
                std::string(RowOf(call.operation).name) + " in line " + std::to_string(call.line);
            if (!call.ended || call.incomplete || call.outOfMemory) {
                leftOut.Add(recorded.name, place + " is not complete");
            } else if (HasFailed(call) && !IsExpected(call)) {
                leftOut.Add(recorded.name, place + " failed with " + std::to_string(FailureOf(call)));
            }
        }
    }
}

} // namespace

MadeProfile ProfileFrom(const observer::Recording& recording, const std::string& name) {
    const RecordedExports& exports = recording.Exports();
    const std::string windows = Utf8Of(StringIn(recording.Header(), "windows")).value_or("");
    ProfileJson profile{{"name", name}, {"description", "Made from a recording of Windows " + windows}};
    LeftOut leftOut;
    AddEc(exports, profile, leftOut);
    AddDevices(exports, profile, leftOut);
    const std::vector<std::u16string> stored = AddRegistry(exports, profile, leftOut);
    AddSoftware(exports, stored, profile, leftOut);
    AddRadios(exports, profile, leftOut);
    AddWmi(exports, profile, leftOut);
    AddSystem(exports, profile, leftOut);
    LeaveOutFailures(exports, leftOut);
    ProfileJson shown;
    for (const auto& [section, content] : profile.items()) {
        if (!content.is_null()) {
            shown[section] = content;
        }
    }
    MadeProfile made{shown.dump(2, ' ', false, ProfileJson::error_handler_t::replace) + '\n',
                     leftOut.Lines()};
    if (const std::vector<ProfileFinding> findings = FindingsIn(made.text); !findings.empty()) {
        throw Error("what was recorded makes no profile: " + findings.front().text);
    }
    return made;
}

} // namespace tool
