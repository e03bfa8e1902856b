#include "platform/system_information.h"

#include "observer/observe.h"

namespace platform {

using namespace observer::decorators;

bool RtlGetVersion(OsVersion& version) {
    return Observe<Operation::RtlGetVersion>(back_end::RtlGetVersion, InOut("version", version));
}

Module LoadLibraryW(const char16_t* name) {
    return ObserveOpening<Operation::LoadLibraryW>(OpensResult{HandleKind::Library, name},
                                                   back_end::LoadLibraryW, In("name", name));
}

void FreeLibrary(Module module) {
    Observe<Operation::FreeLibrary>(back_end::FreeLibrary, Closes("library", module));
}

HResult WldpQueryWindowsLockdownMode(Module wldp, std::uint32_t& mode) {
    return Observe<Operation::WldpQueryWindowsLockdownMode>(back_end::WldpQueryWindowsLockdownMode,
                                                            In("library", wldp), Out("mode", mode));
}

std::int32_t GetUserGeoID(std::uint32_t geoClass) {
    return Observe<Operation::GetUserGeoID>(back_end::GetUserGeoID, In("class", geoClass));
}

std::int32_t GetGeoInfoW(std::int32_t geoId, std::uint32_t geoType, std::span<char16_t> data,
                         std::uint16_t language) {
    return Observe<Operation::GetGeoInfoW>(back_end::GetGeoInfoW, In("id", geoId), In("type", geoType),
                                           OutTextSpan("text", data), In("language", language));
}

std::int64_t Time64() {
    return Observe<Operation::Time64>(back_end::Time64);
}

bool LocalTime64(std::int64_t time, CalendarTime& local) {
    return Observe<Operation::LocalTime64>(back_end::LocalTime64, In("time", time), Out("local", local));
}

} // namespace platform
