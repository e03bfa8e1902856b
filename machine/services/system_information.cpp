#include "platform/system_information.h"

#include "machine/machine.h"
#include "machine/services/last_error.h"
#include "machine/text/folding.h"
#include "platform/back_end.h"
#include "platform/com.h"

#include <algorithm>
#include <chrono>

namespace VESK_BACK_END {
namespace {

/// The one nation that the machine's user can have set.
constexpr std::int32_t TheUsersNation = 94;

struct LoadedLibrary {};

} // namespace

bool RtlGetVersion(OsVersion& version) {
    const auto machine = machine::Current();
    const auto& known = machine->profile.system.version;
    if (!known) {
        return false;
    }
    // A record of another size is refused, which shows only in its zeros.
    if (version.infoSize == OsVersionInfoExSize) {
        version.major = known->major;
        version.minor = known->minor;
        version.build = known->build;
    }
    return true;
}

Module LoadLibraryW(const char16_t* name) {
    const auto machine = machine::Current();
    if (machine::Folded(name) != u"WLDP.DLL" || !machine->profile.system.hasWldp) {
        machine::SetLastError(error::ModuleNotFound);
        return Module::None;
    }
    return machine->handles.Open<Module>(LoadedLibrary{});
}

void FreeLibrary(Module module) {
    machine::Current()->handles.Close(module);
}

HResult WldpQueryWindowsLockdownMode(Module, std::uint32_t& mode) {
    const auto machine = machine::Current();
    if (!machine->profile.system.hasLockdownQuery) {
        return lockdown::NoRoutine;
    }
    mode = machine->profile.system.lockdownMode;
    return hresult::Ok;
}

std::int32_t GetUserGeoID(std::uint32_t geoClass) {
    const bool known = geoClass == geo::ClassNation && !machine::Current()->profile.system.country.empty();
    return known ? TheUsersNation : geo::NotAvailable;
}

std::int32_t GetGeoInfoW(std::int32_t geoId, std::uint32_t geoType, std::span<char16_t> data, std::uint16_t) {
    const auto machine = machine::Current();
    const std::u16string& country = machine->profile.system.country;
    const std::size_t needed = country.size() + 1;
    if (geoId != TheUsersNation || geoType != geo::Iso2) {
        machine::SetLastError(error::InvalidParameter);
        return 0;
    }
    if (data.empty()) {
        return static_cast<std::int32_t>(needed);
    }
    if (data.size() < needed) {
        machine::SetLastError(error::InsufficientBuffer);
        return 0;
    }
    std::copy_n(country.c_str(), needed, data.begin());
    return static_cast<std::int32_t>(needed);
}

std::int64_t Time64() {
    const auto machine = machine::Current();
    const auto running = std::chrono::duration_cast<std::chrono::seconds>(machine->clock.Now());
    return machine->profile.system.startTime + running.count();
}

bool LocalTime64(std::int64_t time, CalendarTime& local) {
    if (time < 0) {
        return false;
    }
    using namespace std::chrono;
    const sys_seconds point{seconds(time) + minutes(machine::Current()->profile.system.utcOffsetMinutes)};
    const sys_days date = floor<days>(point);
    const year_month_day calendar(date);
    const hh_mm_ss clock(point - date);
    local = {static_cast<int>(calendar.year()),
             static_cast<int>(static_cast<unsigned>(calendar.month())),
             static_cast<int>(static_cast<unsigned>(calendar.day())),
             static_cast<int>(clock.hours().count()),
             static_cast<int>(clock.minutes().count()),
             static_cast<int>(clock.seconds().count())};
    return true;
}

} // namespace VESK_BACK_END
