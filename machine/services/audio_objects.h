// The objects that the simulated machine's audio service hands out. The profile is all that stands behind them.
#pragma once

#include "machine/services/com_objects.h"

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
