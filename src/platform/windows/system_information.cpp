#include "platform/system_information.h"

#include "platform/back_end.h"
#include "platform/windows/support/native.h"
#include "platform/windows/support/system_library.h"

#include <ctime>

namespace VESK_BACK_END {

bool RtlGetVersion(OsVersion& version) {
    using Routine = LONG(WINAPI*)(RTL_OSVERSIONINFOEXW*);
    const auto routine = RoutineOf<Routine>(::GetModuleHandleA("ntdll"), "RtlGetVersion");
    if (routine == nullptr) {
        return false;
    }
    static_assert(sizeof(RTL_OSVERSIONINFOEXW) == OsVersionInfoExSize);
    RTL_OSVERSIONINFOEXW info{};
    info.dwOSVersionInfoSize = version.infoSize;
    routine(&info);
    version.major = info.dwMajorVersion;
    version.minor = info.dwMinorVersion;
    version.build = info.dwBuildNumber;
    return true;
}

Module LoadLibraryW(const char16_t* name) {
    return Module{reinterpret_cast<std::uintptr_t>(LoadSystemLibrary(Wide(name)))};
}

void FreeLibrary(Module module) {
    ::FreeLibrary(reinterpret_cast<HMODULE>(module));
}

HResult WldpQueryWindowsLockdownMode(Module wldp, std::uint32_t& mode) {
    using Routine = HRESULT(WINAPI*)(DWORD*);
    const auto routine = RoutineOf<Routine>(reinterpret_cast<HMODULE>(wldp), "WldpQueryWindowsLockdownMode");
    if (routine == nullptr) {
        return lockdown::NoRoutine;
    }
    DWORD found = mode;
    const HRESULT status = routine(&found);
    mode = found;
    return status;
}

std::int32_t GetUserGeoID(std::uint32_t geoClass) {
    return ::GetUserGeoID(geoClass);
}

std::int32_t GetGeoInfoW(std::int32_t geoId, std::uint32_t geoType, std::span<char16_t> data,
                         std::uint16_t language) {
    return ::GetGeoInfoW(geoId, geoType, data.empty() ? nullptr : Wide(data.data()),
                         static_cast<int>(data.size()), language);
}

std::int64_t Time64() {
    return ::_time64(nullptr);
}

bool LocalTime64(std::int64_t time, CalendarTime& local) {
    ::_tzset(); // the C runtime reads the zone once only, and the process may live through a change of it
    const __time64_t seconds = time;
    tm fields{};
    if (::_localtime64_s(&fields, &seconds) != 0) {
        return false;
    }
    local = {fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday,
             fields.tm_hour,        fields.tm_min,     fields.tm_sec};
    return true;
}

} // namespace VESK_BACK_END
