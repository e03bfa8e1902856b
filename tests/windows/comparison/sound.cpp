#include "com_unused_methods.h"

#include "machine/machine.h"
#include "platform/audio.h"

#include <bit>

namespace comparison {
namespace {

class VolumeWrapper final : public UnusedVolumeMethods<platform::EndpointVolume> {
public:
    using UnusedVolumeMethods::UnusedVolumeMethods;

    HRESULT STDMETHODCALLTYPE GetMasterVolumeLevelScalar(float* level) override {
        return platform::GetMasterVolumeLevelScalar(Object(), *level);
    }

    HRESULT STDMETHODCALLTYPE GetMute(WINBOOL* muted) override {
        bool answer = false;
        const HRESULT status = platform::GetMute(Object(), answer);
        *muted = answer ? TRUE : FALSE;
        return status;
    }
};

class DeviceWrapper final : public Wrapper<IMMDevice, platform::AudioDevice> {
public:
    using Wrapper::Wrapper;

    HRESULT STDMETHODCALLTYPE Activate(REFIID id, DWORD context, PROPVARIANT* parameters,
                                       void** object) override {
        if (context != CLSCTX_INPROC_SERVER || parameters != nullptr) {
            return E_INVALIDARG;
        }
        platform::EndpointVolume volume{};
        const HRESULT status =
            platform::Activate(Object(), std::bit_cast<platform::Guid>(id), context, volume);
        return WrapResult<VolumeWrapper>(status, volume, reinterpret_cast<IAudioEndpointVolume**>(object));
    }

    HRESULT STDMETHODCALLTYPE OpenPropertyStore(DWORD, IPropertyStore**) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetId(LPWSTR*) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetState(DWORD*) override { return E_NOTIMPL; }
};

class EnumeratorWrapper final : public Wrapper<IMMDeviceEnumerator, platform::DeviceEnumerator> {
public:
    using Wrapper::Wrapper;

    HRESULT STDMETHODCALLTYPE GetDefaultAudioEndpoint(EDataFlow flow, ERole role,
                                                      IMMDevice** device) override {
        platform::AudioDevice found{};
        const HRESULT status = platform::GetDefaultAudioEndpoint(Object(), flow, role, found);
        return WrapResult<DeviceWrapper>(status, found, device);
    }

    HRESULT STDMETHODCALLTYPE EnumAudioEndpoints(EDataFlow, DWORD, IMMDeviceCollection**) override {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE GetDevice(LPCWSTR, IMMDevice**) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE RegisterEndpointNotificationCallback(IMMNotificationClient*) override {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE UnregisterEndpointNotificationCallback(IMMNotificationClient*) override {
        return E_NOTIMPL;
    }
};

} // namespace

IUnknown* NewSoundEnumerator(platform::Unknown wrapped) {
    return new EnumeratorWrapper(platform::DeviceEnumerator{static_cast<std::uintptr_t>(wrapped)});
}

} // namespace comparison
