#include "shims.h"

#include "machine/machine.h"
#include "machine/profile/profile.h"
#include "platform/system_information.h"
#include "platform/system_power.h"
#include "platform/time.h"

#include <time.h>

namespace comparison {
namespace {

LONG WINAPI Version(RTL_OSVERSIONINFOEXW* info) {
    platform::OsVersion version{.infoSize = info->dwOSVersionInfoSize};
    platform::RtlGetVersion(version);
    info->dwMajorVersion = version.major;
    info->dwMinorVersion = version.minor;
    info->dwBuildNumber = version.build;
    return 0;
}

HRESULT WINAPI LockdownMode(DWORD* mode) {
    std::uint32_t found = *mode;
    const HRESULT status = platform::WldpQueryWindowsLockdownMode(platform::Module::None, found);
    *mode = found;
    return status;
}

void PutUpLockdownQuery(test::ImportPatch& patch) {
    const machine::SystemProfile& system = machine::Current()->profile.system;
    if (!system.hasWldp) {
        patch.HideLibrary(L"wldp.dll");
        return;
    }
    patch.PretendLibrary(L"wldp.dll");
    patch.ReplaceRoutine("WldpQueryWindowsLockdownMode", system.hasLockdownQuery ? &LockdownMode : nullptr);
}

LONG WINAPI Nation(DWORD geoClass) {
    return platform::GetUserGeoID(geoClass);
}

int WINAPI GeoText(LONG nation, DWORD type, LPWSTR data, int size, WORD language) {
    return WithLastError(platform::GetGeoInfoW(
        nation, type, std::span(Plain(data), data == nullptr ? 0 : static_cast<std::size_t>(size)),
        language));
}

__time64_t Time(__time64_t*) {
    return platform::Time64();
}

/// In the fields of the C library's calendar.
errno_t LocalTime(tm* local, const __time64_t* time) {
    platform::CalendarTime calendar{};
    if (!platform::LocalTime64(*time, calendar)) {
        return EINVAL;
    }
    *local = {.tm_sec = calendar.second,
              .tm_min = calendar.minute,
              .tm_hour = calendar.hour,
              .tm_mday = calendar.day,
              .tm_mon = calendar.month - 1,
              .tm_year = calendar.year - 1900};
    return 0;
}

WINBOOL WINAPI ProcessorTimes(LPFILETIME idle, LPFILETIME kernel, LPFILETIME user) {
    platform::SystemTimes times;
    if (!WithLastError(platform::GetSystemTimes(times))) {
        return FALSE;
    }
    *idle = NativeTime(times.idle);
    *kernel = NativeTime(times.kernel);
    *user = NativeTime(times.user);
    return TRUE;
}

WINBOOL WINAPI PowerStatus(LPSYSTEM_POWER_STATUS native) {
    platform::SystemPowerStatus status{};
    if (!WithLastError(platform::GetSystemPowerStatus(status))) {
        return FALSE;
    }
    *native = {.ACLineStatus = status.acLineStatus,
               .BatteryFlag = status.batteryFlag,
               .BatteryLifePercent = status.batteryLifePercent,
               .BatteryLifeTime = status.batteryLifeTime,
               .BatteryFullLifeTime = status.batteryFullLifeTime};
    return TRUE;
}

VOID WINAPI Wait(DWORD milliseconds) {
    platform::Sleep(milliseconds);
}

} // namespace

void PutUpSystem(test::ImportPatch& patch) {
    patch.ReplaceRoutine("RtlGetVersion", machine::Current()->profile.system.version ? &Version : nullptr);
    PutUpLockdownQuery(patch);
    patch.Replace("GetUserGeoID", &Nation);
    patch.Replace("GetGeoInfoW", &GeoText);
    patch.Replace("_time64", &Time);
    patch.ReplaceRoutine("_localtime64_s", &LocalTime); // the C library of the DLL looks it up
    patch.Replace("GetSystemTimes", &ProcessorTimes);
    patch.Replace("GetSystemPowerStatus", &PowerStatus);
    patch.Replace("Sleep", &Wait);
}

} // namespace comparison
