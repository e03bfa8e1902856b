#include "platform/system_information.h"

#include "machine/machine.h"
#include "machine/profile/profile.h"
#include "machine/services/clock.h"
#include "machine/text/wide_text.h"
#include "observer/gate.h"
#include "platform/back_end.h"
#include "platform/com.h"
#include "platform/device_io.h"

#include <algorithm>
#include <chrono>

namespace VESK_BACK_END {

using machine::Call;
using machine::Current;
using machine::Operation;

namespace {

/// The one nation that the machine's user can have set.
constexpr std::int32_t TheUsersNation = 94;

} // namespace

bool RtlGetVersion(OsVersion& version) {
    Call call(Operation::RtlGetVersion);
    const auto& known = Current().profile.system.version;
    if (call.Refused() || !known) {
        return call.Answered(false);
    }
    // A record of another size is refused, which nobody sees but by its zeros.
    if (version.infoSize == OsVersionInfoExSize) {
        version.major = known->major;
        version.minor = known->minor;
        version.build = known->build;
    }
    return call.Answered(true);
}

Module LoadLibraryW(const char16_t* name) {
    Call call(Operation::LoadLibraryW);
    call.Note([&] { return machine::Utf8FromWide(name); });
    const bool there = machine::Folded(name) == u"WLDP.DLL" && Current().profile.system.hasWldp;
    if (call.Refused() || !there) {
        machine::SetLastError(error::ModuleNotFound);
        return call.Answered(Module::None);
    }
    return call.Answered(Module{Current().gate.Opened("library " + machine::Utf8FromWide(name))});
}

void FreeLibrary(Module module) {
    const Call call(Operation::FreeLibrary);
    Current().gate.Closed(static_cast<std::uintptr_t>(module));
}

HResult WldpQueryWindowsLockdownMode(Module, std::uint32_t& mode) {
    Call call(Operation::WldpQueryWindowsLockdownMode);
    if (call.Refused()) {
        return call.Answered(static_cast<HResult>(call.RefusalCode()));
    }
    if (!Current().profile.system.hasLockdownQuery) {
        return call.Answered(lockdown::NoRoutine);
    }
    mode = Current().profile.system.lockdownMode;
    return call.Answered(hresult::Ok);
}

std::int32_t GetUserGeoID(std::uint32_t geoClass) {
    Call call(Operation::GetUserGeoID);
    call.Note([&] { return std::to_string(geoClass); });
    const bool known = geoClass == geo::ClassNation && !Current().profile.system.country.empty();
    return call.Answered(call.Refused() || !known ? geo::NotAvailable : TheUsersNation);
}

std::int32_t GetGeoInfoW(std::int32_t geoId, std::uint32_t geoType, std::span<char16_t> data, std::uint16_t) {
    Call call(Operation::GetGeoInfoW);
    call.Note([&] { return "room " + std::to_string(data.size()); });
    const std::u16string& country = Current().profile.system.country;
    const std::size_t needed = country.size() + 1;
    if (call.Refused() || geoId != TheUsersNation || geoType != geo::Iso2) {
        machine::SetLastError(error::InvalidParameter);
        return call.Answered(0);
    }
    if (data.empty()) {
        return call.Answered(static_cast<std::int32_t>(needed));
    }
    if (data.size() < needed) {
        machine::SetLastError(error::InsufficientBuffer);
        return call.Answered(0);
    }
    std::copy_n(country.c_str(), needed, data.begin());
    return call.Answered(static_cast<std::int32_t>(needed));
}

std::int64_t Time64() {
    Call call(Operation::Time64);
    const auto running = std::chrono::duration_cast<std::chrono::seconds>(Current().clock.Now());
    return call.Answered(Current().profile.system.startTime + running.count());
}

bool LocalTime64(std::int64_t time, CalendarTime& local) {
    Call call(Operation::LocalTime64);
    if (call.Refused() || time < 0) {
        return call.Answered(false);
    }
    using namespace std::chrono;
    const sys_seconds point{seconds(time) + minutes(Current().profile.system.utcOffsetMinutes)};
    const sys_days date = floor<days>(point);
    const year_month_day calendar(date);
    const hh_mm_ss clock(point - date);
    local = {static_cast<int>(calendar.year()),
             static_cast<int>(static_cast<unsigned>(calendar.month())),
             static_cast<int>(static_cast<unsigned>(calendar.day())),
             static_cast<int>(clock.hours().count()),
             static_cast<int>(clock.minutes().count()),
             static_cast<int>(clock.seconds().count())};
    return call.Answered(true);
}

} // namespace VESK_BACK_END
