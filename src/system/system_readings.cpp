#include "system/system_readings.h"

#include "frame/diagnostics.h"
#include "frame/host_buffer.h"
#include "frame/memory_guard.h"
#include "frame/text.h"
#include "platform/audio.h"
#include "platform/device_io.h"
#include "platform/system_information.h"
#include "vesk_sondrel.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <vector>

namespace sondrel {

using platform::Failed;
using platform::HResult;

namespace {

/// Whether the system is in S mode. False if the query fails.
bool ReadSMode() {
    const platform::OwnedModule wldp(platform::LoadLibraryW(u"wldp.dll"));
    if (!wldp) {
        const platform::SystemError error = platform::GetLastError();
        TraceLine([=] { return "[System_Check_S_Mode] Load Dll Error, error = " + std::to_string(error); });
        return false;
    }
    TraceLine("[System_Check_S_Mode] Load Dll Success\n");
    std::uint32_t mode = 0;
    if (platform::WldpQueryWindowsLockdownMode(wldp.Get(), mode) != platform::hresult::Ok) {
        TraceLine("[System_Check_S_Mode] QueryWindowsMode Fail\n");
        return false;
    }
    return mode == 1 || mode == 2;
}

std::u16string ReadCountryCode() {
    constexpr std::uint16_t NeutralLanguage = 0;
    const std::int32_t nation = platform::GetUserGeoID(platform::geo::ClassNation);
    const std::int32_t length = platform::GetGeoInfoW(nation, platform::geo::Iso2, {}, NeutralLanguage);
    // The second call decides. A buffer without characters is a buffer all the same, not the question for the length.
    std::vector<char16_t> code(static_cast<std::size_t>(std::max(length, 1)));
    const std::span taken = std::span(code).first(static_cast<std::size_t>(std::max(length, 0)));
    if (platform::GetGeoInfoW(nation, platform::geo::Iso2, taken, NeutralLanguage) == 0) {
        return {};
    }
    return {taken.begin(), std::ranges::find(taken, u'\0')};
}

constexpr std::size_t LocalTimeSize = 20; // "2024-05-17 10:30:00" and the terminator

/// All zeros on failure.
std::array<char, LocalTimeSize> ReadLocalTime() {
    std::array<char, LocalTimeSize> text{};
    platform::CalendarTime local{};
    if (!platform::LocalTime64(platform::Time64(), local)) {
        return text;
    }
    std::tm fields{};
    fields.tm_year = local.year - 1900;
    fields.tm_mon = local.month - 1;
    fields.tm_mday = local.day;
    fields.tm_hour = local.hour;
    fields.tm_min = local.minute;
    fields.tm_sec = local.second;
    if (std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &fields) == 0) {
        text.fill('\0');
    }
    return text;
}

/// Rounded down. A level outside 0 to 1 is clamped.
std::int32_t PercentOf(float level) {
    return level > 0 ? static_cast<std::int32_t>(std::min(static_cast<double>(level), 1.0) * 100.0) : 0;
}

HResult CreateDeviceEnumerator(platform::DeviceEnumerator& devices) {
    return platform::CoCreateInstance(platform::ClsidDeviceEnumerator, platform::class_context::InprocServer,
                                      platform::IidDeviceEnumerator, devices);
}

HResult DefaultDevice(platform::DeviceEnumerator devices, platform::AudioDevice& device) {
    return platform::GetDefaultAudioEndpoint(devices, platform::audio::FlowRender,
                                             platform::audio::RoleConsole, device);
}

HResult ActivateVolume(platform::AudioDevice device, platform::EndpointVolume& volume) {
    return platform::Activate(device, platform::IidEndpointVolume, platform::class_context::InprocServer,
                              volume);
}

/// The level, muted or not; -1 on failure. Each object is released as soon as the next one exists.
std::int32_t ReadVolumeLevel() {
    platform::OwnedDeviceEnumerator devices;
    if (Failed(CreateDeviceEnumerator(devices.Receive()))) {
        return -1;
    }
    platform::OwnedAudioDevice device;
    const HResult found = DefaultDevice(devices.Get(), device.Receive());
    devices.Reset();
    if (Failed(found) || !device) {
        return -1;
    }
    platform::OwnedEndpointVolume volume;
    const HResult activated = ActivateVolume(device.Get(), volume.Receive());
    device.Reset();
    float level = 0;
    if (Failed(activated) || Failed(platform::GetMasterVolumeLevelScalar(volume.Get(), level))) {
        return -1;
    }
    return PercentOf(level);
}

struct Endpoint {
    platform::OwnedDeviceEnumerator devices;
    platform::OwnedAudioDevice device;
    platform::OwnedEndpointVolume volume;

    void Release() {
        devices.Reset();
        device.Reset();
        volume.Reset();
    }
};

/// False if a step failed; the failure is logged.
bool OpenEndpoint(Endpoint& endpoint) {
    if (Failed(CreateDeviceEnumerator(endpoint.devices.Receive()))) {
        TraceLine("[getvolume] CoCreateInstance fail");
        return false;
    }
    if (Failed(DefaultDevice(endpoint.devices.Get(), endpoint.device.Receive()))) {
        TraceLine("[getvolume] deviceEnumerator->GetDefaultAudioEndpoint fail");
        return false;
    }
    if (Failed(ActivateVolume(endpoint.device.Get(), endpoint.volume.Receive()))) {
        TraceLine("[getvolume] defaultDevice->Activate fail");
        return false;
    }
    return true;
}

/// "0" while muted. If the mute state cannot be read, the endpoint counts as not muted.
std::u16string VolumeString(platform::EndpointVolume volume) {
    float level = 0;
    bool muted = false;
    const HResult status = platform::GetMasterVolumeLevelScalar(volume, level);
    platform::GetMute(volume, muted);
    if (muted) {
        return u"0";
    }
    return Failed(status) ? std::u16string() : DecimalText(PercentOf(level));
}

} // namespace

std::u16string getvolume() {
    if (Failed(platform::CoInitializeEx(platform::apartment::Multithreaded))) {
        TraceLine("[getvolume] CoInitializeEx fail");
        return {};
    }
    const platform::OwnedApartment apartment(platform::Apartment::Entered);
    Endpoint endpoint;
    std::u16string text = OpenEndpoint(endpoint) ? VolumeString(endpoint.volume.Get()) : std::u16string();
    endpoint.Release();
    return text;
}

} // namespace sondrel

using namespace sondrel;

int32_t System_Check_S_Mode(void) {
    const int32_t result = OnOutOfMemory(false, ReadSMode) ? 1 : 0;
    TraceLine([=] { return "[System_Check_S_Mode] result = " + std::to_string(result); });
    return result;
}

void System_GetCountryCode_ISO2(VeskChar16* out) {
    AnswerWith(out, ReadCountryCode);
}

void System_Read_LocalTime(char* out) {
    std::ranges::copy(ReadLocalTime(), out);
}

int32_t System_Read_VolumeLevel(uint8_t initCom) {
    if (initCom != 0) {
        TraceLine("[System_Read_VolumeLevel] Do Coinitialize()");
        platform::CoInitializeEx(platform::apartment::SingleThreaded);
    }
    const int32_t level = ReadVolumeLevel();
    if (initCom != 0) {
        TraceLine("[System_Read_VolumeLevel] Do CoUninitialize()");
        platform::CoUninitialize();
    }
    return level;
}
