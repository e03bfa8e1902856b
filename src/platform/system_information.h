// Properties of the operating system: version, lockdown mode, the user's nation, the time.
#pragma once

#include "platform/support/owned.h"
#include "platform/types.h"

#include <span>

namespace platform {

/// The fields of RTL_OSVERSIONINFOEXW that are used.
struct OsVersion {
    std::uint32_t infoSize = 0; // set by the caller
    std::uint32_t major = 0;
    std::uint32_t minor = 0;
    std::uint32_t build = 0;
};

inline constexpr std::uint32_t OsVersionInfoExSize = 284; // sizeof(RTL_OSVERSIONINFOEXW)

/// RtlGetVersion of "ntdll", looked up at each call. False if there is no such routine; its status is ignored.
bool RtlGetVersion(OsVersion& version);

enum class Module : std::uintptr_t { None = 0 };

/// Loads a library of the system directory, which is the only place that is searched. `Module::None` with the last error
/// set on failure.
Module LoadLibraryW(const char16_t* name);

void FreeLibrary(Module module);

using OwnedModule = Owned<Module, FreeLibrary, Module::None>;

/// WldpQueryWindowsLockdownMode, looked up in "wldp.dll". `lockdown::NoRoutine` if the library does not have it.
HResult WldpQueryWindowsLockdownMode(Module wldp, std::uint32_t& mode);

namespace lockdown {
inline constexpr HResult NoRoutine = static_cast<HResult>(0x8007007F); // ERROR_PROC_NOT_FOUND
} // namespace lockdown

namespace geo {
inline constexpr std::uint32_t ClassNation = 16; // GEOCLASS_NATION
inline constexpr std::uint32_t Iso2 = 4;         // GEO_ISO2
inline constexpr std::int32_t NotAvailable = -1; // GEOID_NOT_AVAILABLE
} // namespace geo

std::int32_t GetUserGeoID(std::uint32_t geoClass);

/// The number of characters written, terminator included; with `data` empty, the number needed. 0 on failure.
std::int32_t GetGeoInfoW(std::int32_t geoId, std::uint32_t geoType, std::span<char16_t> data,
                         std::uint16_t language);

/// A calendar date and time.
struct CalendarTime {
    std::int32_t year;  // 2024
    std::int32_t month; // 1 to 12
    std::int32_t day;   // 1 to 31
    std::int32_t hour;
    std::int32_t minute;
    std::int32_t second; // 60 in a leap second
};

/// _time64: seconds since the start of 1970, in UTC.
std::int64_t Time64();

/// _localtime64_s in the zone that the system has now. False if the time cannot be converted.
bool LocalTime64(std::int64_t time, CalendarTime& local);

} // namespace platform
