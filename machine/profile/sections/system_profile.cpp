#include "machine/profile/sections/system_profile.h"

#include "machine/profile/profile_reader.h"
#include "machine/profile/sections/disk_profile.h"

#include <chrono>
#include <cstdio>

namespace machine {
namespace {

/// "2024-05-17T08:30:00" in seconds since 1970.
std::optional<std::int64_t> TimeOf(const std::string& text) {
    constexpr std::string_view Form = "0000-00-00T00:00:00";
    bool whole = text.size() == Form.size();
    for (std::size_t place = 0; whole && place < Form.size(); ++place) {
        whole = Form[place] == '0' ? text[place] >= '0' && text[place] <= '9' : text[place] == Form[place];
    }
    int year = 0;
    unsigned month = 0;
    unsigned day = 0;
    unsigned hour = 0;
    unsigned minute = 0;
    unsigned second = 0;
    if (!whole || std::sscanf(text.c_str(), "%4d-%2u-%2uT%2u:%2u:%2u", &year, &month, &day, &hour, &minute,
                              &second) != 6) {
        return std::nullopt;
    }
    const std::chrono::year_month_day date{std::chrono::year{year}, std::chrono::month{month},
                                           std::chrono::day{day}};
    if (!date.ok() || hour > 23 || minute > 59 || second > 59) {
        return std::nullopt;
    }
    const std::chrono::seconds time = std::chrono::sys_days(date).time_since_epoch() +
                                      std::chrono::hours{hour} + std::chrono::minutes{minute} +
                                      std::chrono::seconds{second};
    return time.count();
}

void ReadVersion(ProfileReader& reader, OsVersionProfile& version) {
    reader.Members("major", version.major, "minor", version.minor, "build", version.build);
}

void ReadAdapter(ProfileReader& reader, AdapterProfile& adapter) {
    // Numbers of the interface type registry, in the order of their names below.
    constexpr std::uint32_t Types[] = {6, 23, 24, 71, 131, 243};
    std::size_t type = 0;
    reader.Number("index", adapter.index);
    reader.Choice("type", {"ethernet", "ppp", "loopback", "wireless", "tunnel", "mobile"}, type);
    adapter.type = Types[type];
}

} // namespace

void ReadSystem(ProfileReader& reader, SystemProfile& system) {
    bool hasVersion = true;
    std::string date;
    double offset = 0;
    constexpr double Day = 24 * 60;
    reader.Object("version", *system.version, ReadVersion);
    reader.Members("has_version", hasVersion, "has_wldp", system.hasWldp, "has_lockdown_query",
                   system.hasLockdownQuery, "lockdown_mode", system.lockdownMode, "country", system.country);
    if (!hasVersion) {
        system.version.reset();
    }
    if (reader.String("date", date, Presence::Optional,
                      {"a date and time in UTC like \"2024-05-17T08:30:00\"", [](const std::string& text) {
                           return TimeOf(text).has_value();
                       }})) {
        system.startTime = *TimeOf(date);
    }
    reader.Real("utc_offset_minutes", offset, -Day, Day);
    system.utcOffsetMinutes = static_cast<std::int32_t>(offset);
}

void ReadAudio(ProfileReader& reader, AudioProfile& audio) {
    double volume = 0;
    audio.present = reader.Real("volume", volume, 0, 1);
    audio.volume = static_cast<float>(volume);
    reader.Flag("muted", audio.muted);
}

void ReadNetwork(ProfileReader& reader, NetworkProfile& network) {
    reader.Objects("adapters", network.adapters, ReadAdapter);
    reader.Objects("arriving", network.arriving, ReadAdapter);
}

void ReadDeviceNode(ProfileReader& reader, DeviceNodeProfile& device, RegistryProfile& registry) {
    reader.String("id", device.id, Presence::Required);
    reader.Members("present", device.present, "description", device.description, "driver_key",
                   device.driverKey);
    if (std::u16string version; reader.String("driver_version", version)) {
        registry.AddString(u"HKLM\\SYSTEM\\ControlSet001\\Control\\Class\\" + device.driverKey.value_or(u""),
                           u"DriverVersion", version);
    }
}

} // namespace machine
