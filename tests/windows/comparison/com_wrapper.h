// COM objects of this program in front of the machine's: what the DLL gets for an interface pointer.
#pragma once

#include <windows.h>

// A macro that would rename a method of WMI, and an operation of the machine.
#undef GetObject

#include "platform/com.h"

#include <unknwn.h>

namespace comparison {

IUnknown* NewWmiLocator(platform::Unknown wrapped);
IUnknown* NewSoundEnumerator(platform::Unknown wrapped);

/// An object with one interface, counted as COM counts it. With its last release the machine's pointer is released,
/// so that the machine's ledger lists which are open.
template <class Interface, class Wrapped>
class Wrapper : public Interface {
public:
    explicit Wrapper(Wrapped wrapped) : m_wrapped(wrapped) {}

    Wrapper(const Wrapper&) = delete;
    Wrapper& operator=(const Wrapper&) = delete;

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
            delete this;
        }
        return left;
    }

    [[nodiscard]] Wrapped Object() const { return m_wrapped; }

protected:
    virtual ~Wrapper() { platform::ReleaseInterface(m_wrapped); }

private:
    Wrapped m_wrapped;
    ULONG m_count = 1;
};

/// What the machine answered, with an object in front of the pointer that it gave. `made` is null as long as there is
/// none, as where a method has no input.
template <class Made, class Wrapped, class Interface>
HRESULT WrapResult(HRESULT status, Wrapped wrapped, Interface** made) {
    if (SUCCEEDED(status)) {
        *made = wrapped == Wrapped{} ? nullptr : new Made(wrapped);
    }
    return status;
}

} // namespace comparison
