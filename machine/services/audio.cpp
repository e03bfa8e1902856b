#include "platform/audio.h"

#include "machine/machine.h"
#include "machine/profile/profile.h"
#include "machine/services/audio_objects.h"
#include "observer/gate.h"
#include "platform/back_end.h"

#include <memory>

namespace VESK_BACK_END {

using machine::Call;
using machine::Current;
using machine::Operation;

namespace {

constexpr HResult NoSuchElement = static_cast<HResult>(0x80070490); // ERROR_NOT_FOUND

template <class Object, class Interface, class Body>
HResult Perform(Operation operation, Interface pointer, Body body) {
    Call call(operation);
    if (call.Refused()) {
        return call.Answered(static_cast<HResult>(call.RefusalCode()));
    }
    const auto* object = Current().com.Find<Object>(pointer);
    return call.Answered(object == nullptr ? hresult::Pointer : body());
}

} // namespace

HResult GetDefaultAudioEndpoint(DeviceEnumerator devices, std::int32_t dataFlow, std::int32_t role,
                                AudioDevice& device) {
    return Perform<machine::DeviceEnumeratorObject>(Operation::GetDefaultAudioEndpoint, devices, [&] {
        if (dataFlow != audio::FlowRender || role != audio::RoleConsole || !Current().profile.audio.present) {
            return NoSuchElement;
        }
        device = Current().com.HandOut<AudioDevice>(std::make_shared<machine::AudioDeviceObject>());
        return hresult::Ok;
    });
}

HResult Activate(AudioDevice device, const Guid& interfaceId, std::uint32_t, EndpointVolume& volume) {
    return Perform<machine::AudioDeviceObject>(Operation::Activate, device, [&] {
        if (interfaceId != IidEndpointVolume) {
            return hresult::NoInterface;
        }
        volume = Current().com.HandOut<EndpointVolume>(std::make_shared<machine::EndpointVolumeObject>());
        return hresult::Ok;
    });
}

HResult GetMasterVolumeLevelScalar(EndpointVolume volume, float& level) {
    return Perform<machine::EndpointVolumeObject>(Operation::GetMasterVolumeLevelScalar, volume, [&] {
        level = Current().profile.audio.volume;
        return hresult::Ok;
    });
}

HResult GetMute(EndpointVolume volume, bool& muted) {
    return Perform<machine::EndpointVolumeObject>(Operation::GetMute, volume, [&] {
        muted = Current().profile.audio.muted;
        return hresult::Ok;
    });
}

} // namespace VESK_BACK_END
