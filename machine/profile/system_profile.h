// What a profile says about the operating system, the user's settings and the audio endpoint.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace machine {

class ProfileReader;

struct OsVersionProfile {
    std::uint32_t major = 10;
    std::uint32_t minor = 0;
    std::uint32_t build = 0;
};

struct SystemProfile {
    /// Nothing: a system without RtlGetVersion.
    std::optional<OsVersionProfile> version;

    bool hasWldp = true;          // "wldp.dll" is there
    bool hasLockdownQuery = true; // with the routine in it
    std::uint32_t lockdownMode = 0;

    std::u16string country; // two letters; empty: the user has set none

    std::int64_t startTime = 0;        // seconds since 1970 in UTC, when the machine starts
    std::int32_t utcOffsetMinutes = 0; // local time is that much ahead
};

struct AudioProfile {
    bool present = false; // there is a default device for sound
    float volume = 0.0F;  // 0 to 1
    bool muted = false;
};

SystemProfile ReadSystem(ProfileReader reader);
AudioProfile ReadAudio(ProfileReader reader);

} // namespace machine
