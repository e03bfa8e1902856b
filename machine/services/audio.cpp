#include "platform/audio.h"

#include "machine/machine.h"
#include "machine/models/com_objects.h"
#include "platform/back_end.h"

namespace VESK_BACK_END {
namespace {

constexpr HResult NoSuchElement = static_cast<HResult>(0x80070490); // ERROR_NOT_FOUND

} // namespace

HResult GetDefaultAudioEndpoint(DeviceEnumerator devices, std::int32_t dataFlow, std::int32_t role,
                                AudioDevice& device) {
    const auto machine = machine::Current();
    if (machine->handles.Find<machine::DeviceEnumeratorObject>(devices) == nullptr) {
        return hresult::Pointer;
    }
    if (dataFlow != audio::FlowRender || role != audio::RoleConsole || !machine->profile.audio.present) {
        return NoSuchElement;
    }
    device = machine->handles.Open<AudioDevice>(machine::AudioDeviceObject{});
    return hresult::Ok;
}

HResult Activate(AudioDevice device, const Guid& interfaceId, std::uint32_t, EndpointVolume& volume) {
    const auto machine = machine::Current();
    if (machine->handles.Find<machine::AudioDeviceObject>(device) == nullptr) {
        return hresult::Pointer;
    }
    if (interfaceId != IidEndpointVolume) {
        return hresult::NoInterface;
    }
    volume = machine->handles.Open<EndpointVolume>(machine::EndpointVolumeObject{});
    return hresult::Ok;
}

HResult GetMasterVolumeLevelScalar(EndpointVolume volume, float& level) {
    const auto machine = machine::Current();
    if (machine->handles.Find<machine::EndpointVolumeObject>(volume) == nullptr) {
        return hresult::Pointer;
    }
    level = machine->profile.audio.volume;
    return hresult::Ok;
}

HResult GetMute(EndpointVolume volume, bool& muted) {
    const auto machine = machine::Current();
    if (machine->handles.Find<machine::EndpointVolumeObject>(volume) == nullptr) {
        return hresult::Pointer;
    }
    muted = machine->profile.audio.muted;
    return hresult::Ok;
}

} // namespace VESK_BACK_END
