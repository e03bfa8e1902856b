// The objects that the simulated machine's audio service hands out. What they report is the profile's.
#pragma once

#include "machine/models/com/com_objects.h"

namespace machine {

class DeviceEnumeratorObject final : public ComObject {
public:
    [[nodiscard]] std::string_view InterfaceName() const override { return "IMMDeviceEnumerator"; }
};

class AudioDeviceObject final : public ComObject {
public:
    [[nodiscard]] std::string_view InterfaceName() const override { return "IMMDevice"; }
};

class EndpointVolumeObject final : public ComObject {
public:
    [[nodiscard]] std::string_view InterfaceName() const override { return "IAudioEndpointVolume"; }
};

} // namespace machine
