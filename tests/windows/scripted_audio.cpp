#include "scripted_audio.h"

#include <objbase.h>

#include <endpointvolume.h>
#include <mmdeviceapi.h>

#include <stdexcept>
#include <utility>

namespace test {
namespace {

AudioScript TheScript;

constexpr CLSID EnumeratorClass = {
    0xBCDE0395, 0xE52F, 0x467C, {0x8E, 0x3D, 0xC4, 0x57, 0x92, 0x91, 0x69, 0x2E}};

void Note(std::wstring call) {
    TheScript.calls.push_back(std::move(call));
}

template <class Interface>
class Counted : public Interface {
public:
    explicit Counted(const wchar_t* name) : m_name(name) { ++TheScript.alive; }

    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        if (id != __uuidof(Interface) && id != __uuidof(IUnknown)) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        *object = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_count; }

    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --m_count;
        if (left == 0) {
            Note(std::wstring(L"Release ") + m_name);
            --TheScript.alive;
            delete this;
        }
        return left;
    }

protected:
    virtual ~Counted() = default;

private:
    const wchar_t* m_name;
    ULONG m_count = 1;
};

class VolumeStandIn final : public Counted<IAudioEndpointVolume> {
public:
    VolumeStandIn() : Counted(L"IAudioEndpointVolume") {}

    HRESULT STDMETHODCALLTYPE GetMasterVolumeLevelScalar(float* level) override {
        Note(L"GetMasterVolumeLevelScalar");
        *level = TheScript.level;
        return TheScript.getLevel;
    }

    HRESULT STDMETHODCALLTYPE GetMute(WINBOOL* muted) override {
        Note(L"GetMute");
        *muted = TheScript.muted ? TRUE : FALSE;
        return S_OK;
    }

    // clang-format off
    HRESULT STDMETHODCALLTYPE RegisterControlChangeNotify(IAudioEndpointVolumeCallback*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE UnregisterControlChangeNotify(IAudioEndpointVolumeCallback*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetChannelCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetMasterVolumeLevel(FLOAT, LPCGUID) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetMasterVolumeLevelScalar(FLOAT, LPCGUID) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMasterVolumeLevel(FLOAT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetChannelVolumeLevel(UINT, FLOAT, LPCGUID) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetChannelVolumeLevelScalar(UINT, FLOAT, LPCGUID) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetChannelVolumeLevel(UINT, FLOAT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetChannelVolumeLevelScalar(UINT, FLOAT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetMute(WINBOOL, LPCGUID) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetVolumeStepInfo(UINT*, UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE VolumeStepUp(LPCGUID) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE VolumeStepDown(LPCGUID) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE QueryHardwareSupport(DWORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetVolumeRange(FLOAT*, FLOAT*, FLOAT*) override { return E_NOTIMPL; }

    // clang-format on
};

class DeviceStandIn final : public Counted<IMMDevice> {
public:
    DeviceStandIn() : Counted(L"IMMDevice") {}

    HRESULT STDMETHODCALLTYPE Activate(REFIID id, DWORD context, PROPVARIANT*, void** object) override {
        Note(L"Activate " + std::to_wstring(context));
        if (FAILED(TheScript.activate)) {
            return TheScript.activate;
        }
        auto* volume = new VolumeStandIn;
        const HRESULT status = volume->QueryInterface(id, object);
        volume->Release();
        return status;
    }

    HRESULT STDMETHODCALLTYPE OpenPropertyStore(DWORD, IPropertyStore**) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetId(LPWSTR*) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetState(DWORD*) override { return E_NOTIMPL; }
};

class EnumeratorStandIn final : public Counted<IMMDeviceEnumerator> {
public:
    EnumeratorStandIn() : Counted(L"IMMDeviceEnumerator") {}

    HRESULT STDMETHODCALLTYPE GetDefaultAudioEndpoint(EDataFlow flow, ERole role,
                                                      IMMDevice** device) override {
        Note(L"GetDefaultAudioEndpoint " + std::to_wstring(flow) + L' ' + std::to_wstring(role));
        if (SUCCEEDED(TheScript.getDefaultEndpoint)) {
            *device = new DeviceStandIn;
        }
        return TheScript.getDefaultEndpoint;
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

/// Lives as long as the process, so that it is not counted.
class EnumeratorFactory final : public IClassFactory {
public:
    virtual ~EnumeratorFactory() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
        *object = static_cast<IClassFactory*>(this);
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }

    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override {
        if (FAILED(TheScript.createInstance)) {
            return TheScript.createInstance;
        }
        auto* enumerator = new EnumeratorStandIn;
        const HRESULT status = enumerator->QueryInterface(id, object);
        enumerator->Release();
        return status;
    }

    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

EnumeratorFactory TheFactory;

} // namespace

ScriptedAudio::ScriptedAudio(DWORD apartment) {
    TheScript = {};
    if (FAILED(::CoInitializeEx(nullptr, apartment))) {
        throw std::runtime_error("the thread is in an apartment of the other kind");
    }
    if (FAILED(::CoRegisterClassObject(EnumeratorClass, &TheFactory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                       &m_registration))) {
        ::CoUninitialize();
        throw std::runtime_error("the class of the device enumerator could not be registered");
    }
}

ScriptedAudio::~ScriptedAudio() {
    ::CoRevokeClassObject(m_registration);
    ::CoUninitialize();
}

HRESULT ScriptedAudio::MakeEnumerator(REFIID id, void** object) {
    return TheFactory.CreateInstance(nullptr, id, object);
}

AudioScript& ScriptedAudio::Script() {
    return TheScript;
}

} // namespace test
