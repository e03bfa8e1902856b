#include "platform/audio.h"

#include "platform/back_end.h"
#include "platform/windows/support/native.h"

#include <windows.h>

#include <endpointvolume.h>
#include <mmdeviceapi.h>

#include <bit>

namespace VESK_BACK_END {
namespace {

IAudioEndpointVolume* Native(EndpointVolume volume) {
    return reinterpret_cast<IAudioEndpointVolume*>(volume);
}

} // namespace

HResult GetDefaultAudioEndpoint(DeviceEnumerator devices, std::int32_t dataFlow, std::int32_t role,
                                AudioDevice& device) {
    IMMDevice* found = nullptr;
    const HRESULT status = reinterpret_cast<IMMDeviceEnumerator*>(devices)->GetDefaultAudioEndpoint(
        static_cast<EDataFlow>(dataFlow), static_cast<ERole>(role), &found);
    return Made(status, found, device);
}

HResult Activate(AudioDevice device, const Guid& interfaceId, std::uint32_t classContext,
                 EndpointVolume& volume) {
    void* activated = nullptr;
    const HRESULT status = reinterpret_cast<IMMDevice*>(device)->Activate(std::bit_cast<IID>(interfaceId),
                                                                          classContext, nullptr, &activated);
    return Made(status, activated, volume);
}

HResult GetMasterVolumeLevelScalar(EndpointVolume volume, float& level) {
    return Native(volume)->GetMasterVolumeLevelScalar(&level);
}

HResult GetMute(EndpointVolume volume, bool& muted) {
    BOOL answer = FALSE;
    const HRESULT status = Native(volume)->GetMute(&answer);
    if (SUCCEEDED(status)) {
        muted = answer != FALSE;
    }
    return status;
}

} // namespace VESK_BACK_END
