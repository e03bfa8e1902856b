#include "causes/codes.h"

#include <algorithm>
#include <iterator>

namespace tool {
namespace {

using enum ReadingState;
using enum Course;

struct CodeRow {
    /// "Reg*": all that begin so. "*": all.
    std::string_view operations;
    std::uint32_t code;
    CodeMeaning meaning;
};

constexpr std::uint32_t AnyCode = 0xFFFFFFFF;

constexpr std::string_view RunElevated = "run elevated";
constexpr std::string_view CloseOther = "close the other program that uses it";
constexpr std::string_view CheckWmi = "check that the service Winmgmt runs";
constexpr std::string_view AllowLocation = "allow access to the location, for desktop apps too";

/// The first row that matches holds: the operation's own before those of every operation.
constexpr CodeRow Codes[] = {
    // The library does without them: its reports of what it does, the persisted identity, switches of a parser.
    {"Event*", AnyCode, {Failed, "", "", Never}},
    {"RegisterEventSourceW", AnyCode, {Failed, "", "", Never}},
    {"ReportEventW", AnyCode, {Failed, "", "", Never}},
    {"StringFromGUID2", AnyCode, {Failed, "", "", Never}},
    {"GetMute", AnyCode, {Failed, "", "", Never}},

    // devices: held alone first, shared then
    {"CreateFileW", 2, {Absent, "the device or file does not exist", "", Optional}},
    {"CreateFileW", 3, {Absent, "the path does not exist", "", Optional}},
    {"CreateFileW", 5, {Denied, "access denied", RunElevated, Retried}},
    {"CreateFileW", 32, {InUse, "in use by another process", CloseOther, Retried}},
    {"DeviceIoControl", 2, {Absent, "the device has no such thing"}},
    {"DeviceIoControl", 170, {InUse, "busy", CloseOther}},
    {"DeviceIoControl", 1167, {Absent, "the device is not connected"}},
    {"SetupDiEnumDeviceInterfaces", 259, {Absent, "no device", "", EndOfList}},
    {"SetupDiGetDeviceInterfaceDetailW", 122, {Failed, "the buffer is too small", "", Retried}},
    {"CM_*", 13, {Absent, "no such device node", "", Optional}},
    {"CM_*", 19, {Failed, "the configuration manager failed"}},
    {"CM_*", 26, {Failed, "the buffer is too small", "", Retried}},
    {"CM_*", 37, {Absent, "no such value", "", Optional}},

    // registry
    {"RegEnumKeyExW", 259, {Absent, "no key", "", EndOfList}},
    {"RegQueryValueExW", 6, {Absent, "the key is not open", "", Expected}},
    {"Reg*", 2, {Absent, "not there", "", Expected}},
    {"Reg*", 234, {Failed, "the buffer is too small", "", Retried}},

    // WMI
    {"ConnectServer", 0x8004100E, {Absent, "no such namespace", "install the driver that provides it"}},
    {"ExecMethod", 0x80041002, {Absent, "no such method or instance", "", Optional}},
    {"*", 0x80041010, {Absent, "no such class", "install the driver that provides it"}},
    {"*", 0x80041002, {Absent, "not found"}},
    {"*", 0x80041003, {Denied, "access denied", RunElevated}},
    {"*", 0x80041001, {Failed, "WMI failed", CheckWmi}},
    {"*", 0x80041004, {Failed, "the provider failed", "restart the service Winmgmt"}},
    {"*", 0x80041005, {Failed, "another type was expected"}},
    {"*", 0x80041006, {Failed, "out of memory"}},
    {"*", 0x80041009, {NotReady, "not available now"}},
    {"*", 0x8004100C, {Absent, "not supported"}},
    {"*", 0x80041013, {Failed, "the provider cannot be loaded", "repair the driver that provides it"}},
    {"*", 0x80041014, {Failed, "the provider cannot be initialized", "repair the driver that provides it"}},
    {"*", 0x80041017, {Absent, "no such query"}},
    {"*", 0x80041024, {Absent, "the provider cannot do this", "update the firmware"}},
    {"*", 0x80041032, {TimedOut, "cancelled"}},
    {"*", 0x80041033, {Failed, "WMI is shutting down", CheckWmi}},
    {"*", 0x80041062, {Denied, "a privilege is missing", RunElevated}},
    {"*", 0x8004106C, {Failed, "WMI's quota is exceeded", "restart the service Winmgmt"}},

    // COM and audio
    {"*", 0x80004005, {Failed, "unspecified failure"}},
    {"CoInitializeEx",
     0x80010106,
     {Failed, "this thread is in the other kind of apartment", "pass 0 for initCom"}},
    {"*", 0x80010108, {Failed, "the server has gone", CheckWmi}},
    {"*", 0x8001011F, {TimedOut, "no answer in time"}},
    {"*", 0x80040154, {Absent, "the class is not registered"}},
    {"*", 0x80070005, {Denied, "access denied", RunElevated}},
    {"*", 0x8007000E, {Failed, "out of memory"}},
    {"*", 0x80070422, {Failed, "the service is disabled", "enable the service"}},
    {"*", 0x80070490, {Absent, "there is no such device"}},
    {"*", 0x800706BA, {Failed, "the server cannot be reached", CheckWmi}},
    {"*", 0x88890004, {Failed, "the audio device has gone"}},

    // radios
    {"WlanOpenHandle", 1062, {Failed, "the WLAN service does not run", "start the service WlanSvc"}},
    {"WlanGetNetworkBssList", 5, {Denied, "no consent to the location", AllowLocation}},
    {"WlanQueryInterface", 5, {Denied, "no consent to the location", AllowLocation}},
    {"WlanQueryInterface", 5023, {NotReady, "the interface is not connected"}},
    {"BluetoothFindFirst*", 259, {Absent, "none", "", EndOfList}},
    {"BluetoothFindNext*", 259, {Absent, "none", "", EndOfList}},
    {"GetAdaptersInfo", 111, {Failed, "the buffer is too small", "", Retried}},
    {"GetAdaptersInfo", 232, {Absent, "no network adapter"}},

    // firmware variables
    {"*FirmwareEnvironmentVariableW", 1, {Absent, "the firmware is not UEFI"}},
    {"*FirmwareEnvironmentVariableW", 203, {Absent, "no such firmware variable"}},
    {"*FirmwareEnvironmentVariableW", 1314, {Denied, "the privilege is not held", RunElevated}},
    {"AdjustTokenPrivileges", 1300, {Denied, "the user does not have the privilege", RunElevated}},

    // packages, windows and processes
    {"GetPackagesByPackageFamily", 122, {Failed, "the buffer is too small", "", Retried}},
    {"OpenProcess", 5, {Denied, "access denied", RunElevated, Optional}},
    {"OpenProcess", 87, {Absent, "the process has ended", "", Optional}},
    {"SHLoadIndirectString", 0x80073B17, {Absent, "no such resource", "", Expected}},
    {"GetWindow*", AnyCode, {Absent, "the window has gone, or has none", "", Expected}},
    {"IsWindow*", AnyCode, {Absent, "", "", Expected}},
    {"IsIconic", AnyCode, {Absent, "", "", Expected}},
    {"GetAncestor", AnyCode, {Absent, "", "", Expected}},
    {"GetLastActivePopup", AnyCode, {Absent, "", "", Expected}},
    {"FindWindowExW", AnyCode, {Absent, "", "", Expected}},
    {"GetFileAttributesW", 2, {Absent, "not there", "", Expected}},
    {"GetFileAttributesW", 3, {Absent, "not there", "", Expected}},
    {"LoadLibraryW", 126, {Absent, "this Windows does not have the library"}},

    // the system's codes, for every operation
    {"*", 1, {Failed, "not a function of this device"}},
    {"*", 2, {Absent, "not there"}},
    {"*", 3, {Absent, "the path does not exist"}},
    {"*", 5, {Denied, "access denied", RunElevated}},
    {"*", 6, {Failed, "the handle is not valid"}},
    {"*", 8, {Failed, "out of memory"}},
    {"*", 21, {NotReady, "the device is not ready"}},
    {"*", 31, {Failed, "a device does not work"}},
    {"*", 32, {InUse, "in use by another process", CloseOther}},
    {"*", 33, {InUse, "locked by another process", CloseOther}},
    {"*", 50, {Absent, "not supported"}},
    {"*", 87, {Failed, "an argument is not accepted"}},
    {"*", 112, {Failed, "the disk is full"}},
    {"*", 121, {TimedOut, "no answer in time"}},
    {"*", 122, {Failed, "the buffer is too small", "", Retried}},
    {"*", 127, {Absent, "this Windows does not have the function"}},
    {"*", 170, {InUse, "busy"}},
    {"*", 234, {Failed, "the buffer is too small", "", Retried}},
    {"*", 259, {Absent, "none", "", EndOfList}},
    {"*", 1062, {Failed, "the service does not run", "start the service"}},
    {"*", 1117, {Failed, "I/O error of the device"}},
    {"*", 1167, {Absent, "the device is not connected"}},
    {"*", 1168, {Absent, "not found"}},
    {"*", 1313, {Denied, "there is no such privilege"}},
    {"*", 1314, {Denied, "the privilege is not held", RunElevated}},
    {"*", 1460, {TimedOut, "no answer in time"}},
};

constexpr bool Covers(std::string_view pattern, std::string_view operation) {
    if (pattern.starts_with('*')) {
        return operation.ends_with(pattern.substr(1));
    }
    return pattern.ends_with('*') ? operation.starts_with(pattern.substr(0, pattern.size() - 1))
                                  : operation == pattern;
}

} // namespace

CodeMeaning MeaningOf(std::string_view operation, std::optional<std::uint32_t> code) {
    const auto* const found = std::ranges::find_if(Codes, [&](const CodeRow& row) {
        return Covers(row.operations, operation) && (row.code == AnyCode || (code && row.code == *code));
    });
    return found != std::end(Codes) ? found->meaning : CodeMeaning{};
}

} // namespace tool
