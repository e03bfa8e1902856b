// Audio endpoints: the default device and its master volume.
//
// The operations are those of IMMDeviceEnumerator, IMMDevice and IAudioEndpointVolume, with the object as the
// first argument. An output is written only on success.
#pragma once

#include "platform/com.h"
#include "platform/types.h"

namespace platform {

enum class DeviceEnumerator : std::uintptr_t { None = 0 };
enum class AudioDevice : std::uintptr_t { None = 0 };
enum class EndpointVolume : std::uintptr_t { None = 0 };

using OwnedDeviceEnumerator = OwnedInterface<DeviceEnumerator>;
using OwnedAudioDevice = OwnedInterface<AudioDevice>;
using OwnedEndpointVolume = OwnedInterface<EndpointVolume>;

inline constexpr Guid ClsidDeviceEnumerator{
    0xBCDE0395, 0xE52F, 0x467C, {0x8E, 0x3D, 0xC4, 0x57, 0x92, 0x91, 0x69, 0x2E}};
inline constexpr Guid IidDeviceEnumerator{
    0xA95664D2, 0x9614, 0x4F35, {0xA7, 0x46, 0xDE, 0x8D, 0xB6, 0x36, 0x17, 0xE6}};
inline constexpr Guid IidEndpointVolume{
    0x5CDF2C82, 0x841E, 0x4546, {0x97, 0x22, 0x0C, 0xF7, 0x40, 0x78, 0x22, 0x9A}};

namespace audio {
inline constexpr std::int32_t FlowRender = 0;  // eRender
inline constexpr std::int32_t RoleConsole = 0; // eConsole
} // namespace audio

HResult GetDefaultAudioEndpoint(DeviceEnumerator devices, std::int32_t dataFlow, std::int32_t role,
                                AudioDevice& device);

/// IMMDevice::Activate with no parameters.
HResult Activate(AudioDevice device, const Guid& interfaceId, std::uint32_t classContext,
                 EndpointVolume& volume);

/// 0 to 1.
HResult GetMasterVolumeLevelScalar(EndpointVolume volume, float& level);

HResult GetMute(EndpointVolume volume, bool& muted);

} // namespace platform
