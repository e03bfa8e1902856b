#include "platform/audio.h"

#include "observer/observe.h"

namespace platform {

using namespace observer::decorators;

HResult GetDefaultAudioEndpoint(DeviceEnumerator devices, std::int32_t dataFlow, std::int32_t role,
                                AudioDevice& device) {
    return Observe<Operation::GetDefaultAudioEndpoint>(back_end::GetDefaultAudioEndpoint,
                                                       In("devices", devices), In("flow", dataFlow),
                                                       In("role", role), Opens("device", device));
}

HResult Activate(AudioDevice device, const Guid& interfaceId, std::uint32_t classContext,
                 EndpointVolume& volume) {
    return Observe<Operation::Activate>(back_end::Activate, In("device", device),
                                        In("interface", interfaceId), In("context", classContext),
                                        Opens("volume", volume));
}

HResult GetMasterVolumeLevelScalar(EndpointVolume volume, float& level) {
    return Observe<Operation::GetMasterVolumeLevelScalar>(back_end::GetMasterVolumeLevelScalar,
                                                          In("volume", volume), Out("level", level));
}

HResult GetMute(EndpointVolume volume, bool& muted) {
    return Observe<Operation::GetMute>(back_end::GetMute, In("volume", volume), Out("muted", muted));
}

} // namespace platform
