// COM objects of this program in front of the machine's: what the DLL gets for an interface pointer.
#pragma once

#include <windows.h>

// A macro that would rename a method of WMI, and an operation of the machine.
#undef GetObject

#include "platform/com.h"

#include <unknwn.h>

namespace comparison {

IUnknown* NewWmiLocator(platform::Unknown behind);
IUnknown* NewSoundEnumerator(platform::Unknown behind);

/// An object with one interface, counted as COM counts it. With its last release the machine's pointer is released,
/// so that the machine's ledger tells which are out.
template <class Interface, class Behind>
class Front : public Interface {
public:
    explicit Front(Behind behind) : m_behind(behind) {}

    Front(const Front&) = delete;
    Front& operator=(const Front&) = delete;

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

    [[nodiscard]] Behind Machines() const { return m_behind; }

protected:
    virtual ~Front() { platform::ReleaseInterface(m_behind); }

private:
    Behind m_behind;
    ULONG m_count = 1;
};

/// What the machine answered, with an object in front of the pointer that it gave. `made` is null as long as there is
/// none, as where a method has no input.
template <class Made, class Behind, class Interface>
HRESULT InFront(HRESULT status, Behind behind, Interface** made) {
    if (SUCCEEDED(status)) {
        *made = behind == Behind{} ? nullptr : new Made(behind);
    }
    return status;
}

} // namespace comparison
