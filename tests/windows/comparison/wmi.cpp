#include "com_unused_methods.h"
#include "safe_array.h"
#include "shims.h"

#include "machine/machine.h"
#include "machine/models/wmi/wmi_repository.h"
#include "platform/wmi.h"

#include <cstring>
#include <variant>

namespace comparison {
namespace {

using platform::wbem::InvalidParameter;

BSTR NewText(const std::u16string& text) {
    return ::SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()), static_cast<UINT>(text.size()));
}

VARIANT Plain(VARTYPE type) {
    VARIANT variant{};
    variant.vt = type;
    // The rest of a narrow value's union is not zero, so that a reader that reads too much of it is found.
    std::memset(&variant.llVal, 0xA5, sizeof variant.llVal);
    return variant;
}

/// A property as WMI's own VARIANTs hold it: whole numbers of 32 bits and arrays of them as VT_I4, whatever their
/// sign; larger ones came as text already.
struct ToVariant {
    LONG lowerBound;

    VARIANT operator()(std::monostate) const { return Plain(VT_NULL); }

    VARIANT operator()(bool flag) const {
        VARIANT variant = Plain(VT_BOOL);
        variant.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
        return variant;
    }

    VARIANT operator()(std::int64_t number) const {
        VARIANT variant = Plain(VT_I4);
        variant.lVal = static_cast<LONG>(number);
        return variant;
    }

    VARIANT operator()(const std::u16string& text) const {
        VARIANT variant = Plain(VT_BSTR);
        variant.bstrVal = NewText(text);
        return variant;
    }

    VARIANT operator()(const std::vector<std::int64_t>& numbers) const {
        return test::NewArray<LONG>(VT_I4, lowerBound, numbers,
                                    [](std::int64_t number) { return static_cast<LONG>(number); });
    }

    VARIANT operator()(const std::vector<std::u16string>& texts) const {
        return test::NewArray<BSTR>(VT_BSTR, lowerBound, texts, NewText);
    }

    VARIANT operator()(const std::vector<std::byte>& bytes) const {
        return test::NewArray<BYTE>(VT_UI1, lowerBound, bytes, std::to_integer<BYTE>);
    }
};

/// A row, a class, or the arguments of a method.
class ObjectWrapper final : public UnusedObjectMethods<platform::WbemObject> {
public:
    using UnusedObjectMethods::UnusedObjectMethods;

    HRESULT STDMETHODCALLTYPE Get(LPCWSTR name, LONG flags, VARIANT* value, CIMTYPE*, LONG*) override {
        const auto machine = machine::Current();
        const auto* const datum =
            machine->handles.Find<machine::WbemClassObject>(Object())->Find(comparison::Plain(name));
        if (flags != 0 || datum == nullptr) {
            return flags != 0 ? InvalidParameter : platform::wbem::NotFound;
        }
        // As the real service does it: whatever the caller left there is overwritten, not cleared.
        *value = std::visit(ToVariant{datum->lowerBound}, datum->value);
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE Put(LPCWSTR name, LONG flags, VARIANT* value, CIMTYPE type) override {
        if (flags != 0 || value->vt != VT_BSTR) {
            return InvalidParameter;
        }
        return platform::Put(Object(), comparison::Plain(name),
                             {comparison::Plain(value->bstrVal), ::SysStringLen(value->bstrVal)}, type);
    }

    HRESULT STDMETHODCALLTYPE GetMethod(LPCWSTR name, LONG flags, IWbemClassObject** in,
                                        IWbemClassObject** out) override {
        if (flags != 0 || in == nullptr || out != nullptr) {
            return InvalidParameter;
        }
        platform::WbemObject signature{};
        const HRESULT status = platform::GetMethod(Object(), comparison::Plain(name), signature);
        return WrapResult<ObjectWrapper>(status, signature, in);
    }

    HRESULT STDMETHODCALLTYPE SpawnInstance(LONG flags, IWbemClassObject** instance) override {
        platform::WbemObject spawned{};
        const HRESULT status = flags != 0 ? InvalidParameter : platform::SpawnInstance(Object(), spawned);
        return WrapResult<ObjectWrapper>(status, spawned, instance);
    }
};

class RowsWrapper final : public Wrapper<IEnumWbemClassObject, platform::WbemEnumerator> {
public:
    using Wrapper::Wrapper;

    HRESULT STDMETHODCALLTYPE Next(LONG timeout, ULONG count, IWbemClassObject** rows,
                                   ULONG* returned) override {
        if (count != 1 || returned == nullptr) {
            return InvalidParameter;
        }
        platform::WbemObject row{};
        std::uint32_t came = 0;
        const HRESULT status = platform::Next(Object(), static_cast<std::uint32_t>(timeout), row, came);
        *returned = came;
        return WrapResult<ObjectWrapper>(status, row, rows);
    }

    HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE NextAsync(ULONG, IWbemObjectSink*) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE Clone(IEnumWbemClassObject**) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE Skip(LONG, ULONG) override { return E_NOTIMPL; }
};

/// CoSetProxyBlanket asks for the second interface.
class ServicesWrapper final : public UnusedServiceMethods<platform::WbemServices>, public IClientSecurity {
public:
    using UnusedServiceMethods::UnusedServiceMethods;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        if (id == __uuidof(IClientSecurity)) {
            *object = static_cast<IClientSecurity*>(this);
            AddRef();
            return S_OK;
        }
        return Wrapper::QueryInterface(id, object);
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return Wrapper::AddRef(); }

    ULONG STDMETHODCALLTYPE Release() override { return Wrapper::Release(); }

    /// Nothing but the caller's own identity at the level of calls is what WMI is asked with.
    HRESULT STDMETHODCALLTYPE SetBlanket(IUnknown* proxy, DWORD authentication, DWORD authorization,
                                         OLECHAR* principal, DWORD level, DWORD impersonation, void* identity,
                                         DWORD capabilities) override {
        const bool asDocumented =
            proxy == static_cast<IWbemServices*>(this) && authentication == RPC_C_AUTHN_WINNT &&
            authorization == RPC_C_AUTHZ_NONE && principal == nullptr && level == RPC_C_AUTHN_LEVEL_CALL &&
            impersonation == RPC_C_IMP_LEVEL_IMPERSONATE && identity == nullptr && capabilities == EOAC_NONE;
        return asDocumented ? platform::CoSetProxyBlanket(Object(), {}) : E_INVALIDARG;
    }

    HRESULT STDMETHODCALLTYPE QueryBlanket(IUnknown*, DWORD*, DWORD*, OLECHAR**, DWORD*, DWORD*, void**,
                                           DWORD*) override {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE CopyProxy(IUnknown*, IUnknown**) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE ExecQuery(const BSTR language, const BSTR query, LONG flags,
                                        IWbemContext* context, IEnumWbemClassObject** rows) override {
        constexpr LONG Semisynchronous = WBEM_FLAG_RETURN_IMMEDIATELY | WBEM_FLAG_FORWARD_ONLY;
        if (flags != Semisynchronous || context != nullptr) {
            return InvalidParameter;
        }
        platform::WbemEnumerator found{};
        const HRESULT status = platform::ExecQuery(Object(), comparison::Plain(language),
                                                   comparison::Plain(query), flags, found);
        return WrapResult<RowsWrapper>(status, found, rows);
    }

    HRESULT STDMETHODCALLTYPE GetObject(const BSTR path, LONG flags, IWbemContext* context,
                                        IWbemClassObject** object, IWbemCallResult** result) override {
        if (flags != 0 || context != nullptr || result != nullptr) {
            return InvalidParameter;
        }
        platform::WbemObject definition{};
        const HRESULT status = platform::GetObject(Object(), comparison::Plain(path), definition);
        return WrapResult<ObjectWrapper>(status, definition, object);
    }

    HRESULT STDMETHODCALLTYPE ExecMethod(const BSTR path, const BSTR method, LONG flags,
                                         IWbemContext* context, IWbemClassObject* in, IWbemClassObject** out,
                                         IWbemCallResult** result) override {
        if (flags != 0 || context != nullptr || result != nullptr) {
            return InvalidParameter;
        }
        const auto inputs =
            in == nullptr ? platform::WbemObject{} : static_cast<ObjectWrapper*>(in)->Object();
        platform::WbemObject outputs{};
        NoteChange();
        const HRESULT status = platform::ExecMethod(Object(), comparison::Plain(path),
                                                    comparison::Plain(method), inputs, outputs);
        return WrapResult<ObjectWrapper>(status, outputs, out);
    }
};

class LocatorWrapper final : public Wrapper<IWbemLocator, platform::WbemLocator> {
public:
    using Wrapper::Wrapper;

    HRESULT STDMETHODCALLTYPE ConnectServer(const BSTR resource, const BSTR user, const BSTR password,
                                            const BSTR locale, LONG flags, const BSTR authority,
                                            IWbemContext* context, IWbemServices** services) override {
        if (user != nullptr || password != nullptr || locale != nullptr || flags != 0 ||
            authority != nullptr || context != nullptr) {
            return InvalidParameter;
        }
        platform::WbemServices connected{};
        const HRESULT status = platform::ConnectServer(Object(), comparison::Plain(resource), connected);
        return WrapResult<ServicesWrapper>(status, connected, services);
    }
};

} // namespace

IUnknown* NewWmiLocator(platform::Unknown wrapped) {
    return new LocatorWrapper(platform::WbemLocator{static_cast<std::uintptr_t>(wrapped)});
}

} // namespace comparison
