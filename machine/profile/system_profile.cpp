#include "machine/profile/system_profile.h"

#include "machine/profile/profile_reader.h"
#include "machine/text/wide_text.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string_view>

namespace machine {
namespace {

constexpr const char* ExpectedDate = "a date and time in UTC like \"2024-05-17T08:30:00\"";

std::int64_t ReadDate(ProfileReader& reader, std::string_view name, std::string_view fallback) {
    const std::string text = reader.Text(name, fallback);
    int year = 0;
    unsigned month = 0;
    unsigned day = 0;
    unsigned hour = 0;
    unsigned minute = 0;
    unsigned second = 0;
    int end = 0;
    const int fields = std::sscanf(text.c_str(), "%4d-%2u-%2uT%2u:%2u:%2u%n", &year, &month, &day, &hour,
                                   &minute, &second, &end);
    const std::chrono::year_month_day date{std::chrono::year{year}, std::chrono::month{month},
                                           std::chrono::day{day}};
    const bool digits = std::ranges::all_of(text, [](char each) {
        return std::string_view("0123456789-T:").find(each) != std::string_view::npos;
    });
    constexpr std::size_t Length = 19; // each field with all of its digits
    const bool whole =
        fields == 6 && digits && text.size() == Length && static_cast<std::size_t>(end) == Length;
    if (!whole || !date.ok() || hour > 23 || minute > 59 || second > 59) {
        reader.Fail(name, ExpectedDate);
    }
    const auto days = std::chrono::sys_days(date).time_since_epoch();
    const std::chrono::seconds time =
        days + std::chrono::hours{hour} + std::chrono::minutes{minute} + std::chrono::seconds{second};
    return time.count();
}

} // namespace

SystemProfile ReadSystem(ProfileReader reader) {
    SystemProfile system;
    ProfileReader version = reader.Object("version");
    const OsVersionProfile numbers{version.Number<std::uint32_t>("major", 10),
                                   version.Number<std::uint32_t>("minor", 0),
                                   version.Number<std::uint32_t>("build", 19045)};
    version.Finish();
    if (reader.Flag("has_version", true)) {
        system.version = numbers;
    }
    system.hasWldp = reader.Flag("has_wldp", true);
    system.hasLockdownQuery = reader.Flag("has_lockdown_query", true);
    system.lockdownMode = reader.Number<std::uint32_t>("lockdown_mode", 0);
    system.country = WideFromUtf8(reader.Text("country", ""));
    system.startTime = ReadDate(reader, "date", "2024-01-01T00:00:00");
    constexpr double Day = 24 * 60;
    system.utcOffsetMinutes = static_cast<std::int32_t>(reader.Real("utc_offset_minutes", -Day, Day, 0));
    reader.Finish();
    return system;
}

AudioProfile ReadAudio(ProfileReader reader) {
    AudioProfile audio;
    audio.present = reader.Has("volume");
    audio.volume = static_cast<float>(reader.Real("volume", 0, 1, 0));
    audio.muted = reader.Flag("muted", false);
    reader.Finish();
    return audio;
}

} // namespace machine
