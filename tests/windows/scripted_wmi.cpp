#include "scripted_wmi.h"

// A macro of windows.h that would rename a method of the interface.
#undef GetObject

#include <objbase.h>

#include <wbemidl.h>

#include <stdexcept>
#include <utility>

namespace test {
namespace {

using Script = std::shared_ptr<WmiScript>;

constexpr CLSID LocatorClass = {0x4590F811, 0x1D3A, 0x11D0, {0x89, 0x1F, 0x00, 0xAA, 0x00, 0x4B, 0x2E, 0x24}};

constexpr auto NotFound = static_cast<HRESULT>(0x80041002);
constexpr auto InvalidMethod = static_cast<HRESULT>(0x8004102E);

/// Counting, telling of the release, and the one interface that an object has.
template <class Interface>
class Counted : public Interface {
public:
    Counted(Script script, const wchar_t* name) : m_script(std::move(script)), m_name(name) {
        ++m_script->alive;
    }

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

    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(::InterlockedIncrement(&m_count)); }

    ULONG STDMETHODCALLTYPE Release() override {
        const LONG left = ::InterlockedDecrement(&m_count);
        if (left == 0) {
            Note(std::wstring(L"Release ") + m_name);
            --m_script->alive;
            delete this;
        }
        return static_cast<ULONG>(left);
    }

protected:
    virtual ~Counted() = default;

    void Note(std::wstring call) { m_script->calls.push_back(std::move(call)); }

    [[nodiscard]] WmiScript& TheScript() const { return *m_script; }

    [[nodiscard]] const Script& SharedScript() const { return m_script; }

private:
    Script m_script;
    const wchar_t* m_name;
    LONG m_count = 1;
};

/// Everything of IWbemClassObject that the library does not use.
class UnusedObjectMethods : public Counted<IWbemClassObject> {
public:
    using Counted::Counted;

    // clang-format off
    HRESULT STDMETHODCALLTYPE GetQualifierSet(IWbemQualifierSet**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Delete(LPCWSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetNames(LPCWSTR, LONG, VARIANT*, SAFEARRAY**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE BeginEnumeration(LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Next(LONG, BSTR*, VARIANT*, CIMTYPE*, LONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EndEnumeration() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetPropertyQualifierSet(LPCWSTR, IWbemQualifierSet**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IWbemClassObject**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetObjectText(LONG, BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SpawnDerivedClass(LONG, IWbemClassObject**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CompareTo(LONG, IWbemClassObject*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetPropertyOrigin(LPCWSTR, BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE InheritsFrom(LPCWSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE PutMethod(LPCWSTR, LONG, IWbemClassObject*, IWbemClassObject*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DeleteMethod(LPCWSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE BeginMethodEnumeration(LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE NextMethod(LONG, BSTR*, IWbemClassObject**, IWbemClassObject**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EndMethodEnumeration() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMethodQualifierSet(LPCWSTR, IWbemQualifierSet**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMethodOrigin(LPCWSTR, BSTR*) override { return E_NOTIMPL; }

    // clang-format on
};

/// Everything of IWbemServices that the library does not use.
class UnusedServiceMethods : public Counted<IWbemServices> {
public:
    using Counted::Counted;

    // clang-format off
    HRESULT STDMETHODCALLTYPE OpenNamespace(const BSTR, LONG, IWbemContext*, IWbemServices**, IWbemCallResult**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CancelAsyncCall(IWbemObjectSink*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE QueryObjectSink(LONG, IWbemObjectSink**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetObjectAsync(const BSTR, LONG, IWbemContext*, IWbemObjectSink*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE PutClass(IWbemClassObject*, LONG, IWbemContext*, IWbemCallResult**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE PutClassAsync(IWbemClassObject*, LONG, IWbemContext*, IWbemObjectSink*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DeleteClass(const BSTR, LONG, IWbemContext*, IWbemCallResult**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DeleteClassAsync(const BSTR, LONG, IWbemContext*, IWbemObjectSink*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateClassEnum(const BSTR, LONG, IWbemContext*, IEnumWbemClassObject**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateClassEnumAsync(const BSTR, LONG, IWbemContext*, IWbemObjectSink*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE PutInstance(IWbemClassObject*, LONG, IWbemContext*, IWbemCallResult**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE PutInstanceAsync(IWbemClassObject*, LONG, IWbemContext*, IWbemObjectSink*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DeleteInstance(const BSTR, LONG, IWbemContext*, IWbemCallResult**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DeleteInstanceAsync(const BSTR, LONG, IWbemContext*, IWbemObjectSink*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateInstanceEnum(const BSTR, LONG, IWbemContext*, IEnumWbemClassObject**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateInstanceEnumAsync(const BSTR, LONG, IWbemContext*, IWbemObjectSink*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ExecQueryAsync(const BSTR, const BSTR, LONG, IWbemContext*, IWbemObjectSink*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ExecNotificationQuery(const BSTR, const BSTR, LONG, IWbemContext*, IEnumWbemClassObject**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ExecNotificationQueryAsync(const BSTR, const BSTR, LONG, IWbemContext*, IWbemObjectSink*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ExecMethodAsync(const BSTR, const BSTR, LONG, IWbemContext*, IWbemClassObject*, IWbemObjectSink*) override { return E_NOTIMPL; }

    // clang-format on
};

/// A row, a class, or the arguments of a method: each has properties, a class has methods too.
class ObjectStandIn final : public UnusedObjectMethods {
public:
    ObjectStandIn(Script script, ScriptedRow properties, std::wstring className = {}, std::wstring space = {})
        : UnusedObjectMethods(std::move(script), L"IWbemClassObject"),
          m_properties(std::move(properties)),
          m_className(std::move(className)),
          m_space(std::move(space)) {}

    [[nodiscard]] const ScriptedRow& Properties() const { return m_properties; }

    HRESULT STDMETHODCALLTYPE Get(LPCWSTR name, LONG, VARIANT* value, CIMTYPE*, LONG*) override {
        Note(std::wstring(L"Get ") + name);
        if (const auto planned = TheScript().get.find(name); planned != TheScript().get.end()) {
            return planned->second;
        }
        const auto found = m_properties.find(name);
        if (found == m_properties.end()) {
            return NotFound;
        }
        // As the real service does it: whatever the caller left there is overwritten, not cleared.
        ::VariantInit(value);
        return found->second.CopyTo(*value);
    }

    HRESULT STDMETHODCALLTYPE Put(LPCWSTR name, LONG flags, VARIANT* value, CIMTYPE type) override {
        ScriptedValue put = ScriptedValue::Of(*value);
        Note(std::wstring(L"Put ") + name + L' ' + std::to_wstring(flags) + L' ' + put.Described() + L' ' +
             std::to_wstring(type));
        if (SUCCEEDED(TheScript().put)) {
            m_properties[name] = std::move(put);
        }
        return TheScript().put;
    }

    HRESULT STDMETHODCALLTYPE GetMethod(LPCWSTR name, LONG, IWbemClassObject** in,
                                        IWbemClassObject** out) override {
        Note(std::wstring(L"GetMethod ") + name);
        if (FAILED(TheScript().getMethod)) {
            return TheScript().getMethod;
        }
        const auto found = InputsOf(name);
        if (!found) {
            return NotFound;
        }
        ScriptedRow inputs;
        for (const std::wstring& input : *found) {
            inputs[input] = ScriptedValue();
        }
        if (in != nullptr) {
            *in = inputs.empty() ? nullptr : new ObjectStandIn(SharedScript(), std::move(inputs));
        }
        if (out != nullptr) {
            *out = nullptr;
        }
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE SpawnInstance(LONG, IWbemClassObject** instance) override {
        Note(L"SpawnInstance");
        if (SUCCEEDED(TheScript().spawnInstance)) {
            *instance = new ObjectStandIn(SharedScript(), m_properties);
        }
        return TheScript().spawnInstance;
    }

private:
    std::optional<std::vector<std::wstring>> InputsOf(const std::wstring& method) {
        if (TheScript().service) {
            return TheScript().service->MethodInputs(m_space, m_className, method);
        }
        const auto& methods = TheScript().methods[m_className];
        const auto found = methods.find(method);
        return found == methods.end() ? std::nullopt : std::optional(found->second);
    }

    ScriptedRow m_properties;
    std::wstring m_className;
    std::wstring m_space;
};

class RowsStandIn final : public Counted<IEnumWbemClassObject> {
public:
    RowsStandIn(Script script, std::vector<ScriptedRow> rows, HRESULT status)
        : Counted(std::move(script), L"IEnumWbemClassObject"), m_rows(std::move(rows)), m_status(status) {}

    HRESULT STDMETHODCALLTYPE Next(LONG timeout, ULONG count, IWbemClassObject** rows,
                                   ULONG* returned) override {
        Note(L"Next " + std::to_wstring(timeout) + L' ' + std::to_wstring(count));
        *returned = 0;
        if (m_next == m_rows.size()) {
            return FAILED(m_status) ? m_status : TheScript().nextAtEnd;
        }
        *rows = new ObjectStandIn(SharedScript(), m_rows[m_next++]);
        *returned = 1;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE NextAsync(ULONG, IWbemObjectSink*) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE Clone(IEnumWbemClassObject**) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE Skip(LONG, ULONG) override { return E_NOTIMPL; }

private:
    std::vector<ScriptedRow> m_rows;
    HRESULT m_status;
    std::size_t m_next = 0;
};

class ServicesStandIn;

/// What CoSetProxyBlanket asks a proxy for. Lives as long as the services it belongs to.
class SecurityOfServices final : public IClientSecurity {
public:
    explicit SecurityOfServices(ServicesStandIn& services) : m_services(services) {}

    virtual ~SecurityOfServices() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE SetBlanket(IUnknown*, DWORD authentication, DWORD authorization, OLECHAR*,
                                         DWORD level, DWORD impersonation, void*,
                                         DWORD capabilities) override;

    HRESULT STDMETHODCALLTYPE QueryBlanket(IUnknown*, DWORD*, DWORD*, OLECHAR**, DWORD*, DWORD*, void**,
                                           DWORD*) override {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE CopyProxy(IUnknown*, IUnknown**) override { return E_NOTIMPL; }

private:
    ServicesStandIn& m_services;
};

class ServicesStandIn final : public UnusedServiceMethods {
public:
    ServicesStandIn(Script script, std::wstring space)
        : UnusedServiceMethods(std::move(script), L"IWbemServices"), m_space(std::move(space)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        if (id == __uuidof(IClientSecurity)) {
            *object = static_cast<IClientSecurity*>(&m_security);
            AddRef();
            return S_OK;
        }
        return UnusedServiceMethods::QueryInterface(id, object);
    }

    HRESULT SetBlanket(const std::wstring& numbers) {
        Note(L"SetBlanket " + numbers);
        return TheScript().setBlanket;
    }

    HRESULT STDMETHODCALLTYPE ExecQuery(const BSTR language, const BSTR query, LONG flags, IWbemContext*,
                                        IEnumWbemClassObject** rows) override {
        Note(std::wstring(L"ExecQuery ") + language + L' ' + std::to_wstring(flags) + L' ' + query);
        if (SUCCEEDED(TheScript().execQuery)) {
            std::vector<ScriptedRow> found;
            HRESULT status = S_OK;
            if (TheScript().service) {
                status = TheScript().service->Query(m_space, query, found);
            } else if (const auto planned = TheScript().rows.find(query); planned != TheScript().rows.end()) {
                found = planned->second;
            }
            *rows = new RowsStandIn(SharedScript(), std::move(found), status);
        }
        return TheScript().execQuery;
    }

    HRESULT STDMETHODCALLTYPE GetObject(const BSTR path, LONG, IWbemContext*, IWbemClassObject** object,
                                        IWbemCallResult**) override {
        Note(std::wstring(L"GetObject ") + path);
        const HRESULT status =
            TheScript().service ? TheScript().service->FindClass(m_space, path) : TheScript().getObject;
        if (SUCCEEDED(status)) {
            *object = new ObjectStandIn(SharedScript(), {}, path, m_space);
        }
        return status;
    }

    HRESULT STDMETHODCALLTYPE ExecMethod(const BSTR path, const BSTR method, LONG, IWbemContext*,
                                         IWbemClassObject* in, IWbemClassObject** out,
                                         IWbemCallResult**) override {
        Note(std::wstring(L"ExecMethod ") + path + L' ' + method);
        const ScriptedCall call{
            path, method, in != nullptr ? static_cast<ObjectStandIn*>(in)->Properties() : ScriptedRow()};
        std::optional<ScriptedRow> outputs;
        const HRESULT status = Execute(call, outputs);
        if (SUCCEEDED(status) && out != nullptr && outputs) {
            *out = new ObjectStandIn(SharedScript(), std::move(*outputs));
        }
        return status;
    }

private:
    HRESULT Execute(const ScriptedCall& call, std::optional<ScriptedRow>& outputs) {
        if (TheScript().service) {
            return TheScript().service->Execute(m_space, call, outputs);
        }
        if (FAILED(TheScript().execMethod) || !TheScript().execute) {
            return FAILED(TheScript().execMethod) ? TheScript().execMethod : InvalidMethod;
        }
        return TheScript().execute(call, outputs.emplace());
    }

    std::wstring m_space;
    SecurityOfServices m_security{*this};
};

HRESULT SecurityOfServices::QueryInterface(REFIID id, void** object) {
    return m_services.QueryInterface(id, object);
}

ULONG SecurityOfServices::AddRef() {
    return m_services.AddRef();
}

ULONG SecurityOfServices::Release() {
    return m_services.Release();
}

HRESULT SecurityOfServices::SetBlanket(IUnknown*, DWORD authentication, DWORD authorization, OLECHAR*,
                                       DWORD level, DWORD impersonation, void*, DWORD capabilities) {
    std::wstring numbers = std::to_wstring(authentication);
    for (const DWORD number : {authorization, level, impersonation, capabilities}) {
        numbers += L' ' + std::to_wstring(number);
    }
    return m_services.SetBlanket(numbers);
}

class LocatorStandIn final : public Counted<IWbemLocator> {
public:
    explicit LocatorStandIn(Script script) : Counted(std::move(script), L"IWbemLocator") {}

    HRESULT STDMETHODCALLTYPE ConnectServer(const BSTR resource, const BSTR user, const BSTR password,
                                            const BSTR locale, LONG flags, const BSTR authority,
                                            IWbemContext* context, IWbemServices** services) override {
        const bool plain = user == nullptr && password == nullptr && locale == nullptr && flags == 0 &&
                           authority == nullptr && context == nullptr;
        Note(std::wstring(L"ConnectServer ") + resource + (plain ? L"" : L" with more than the resource"));
        const HRESULT status =
            TheScript().service ? TheScript().service->Connect(resource) : TheScript().connectServer;
        if (SUCCEEDED(status)) {
            *services = new ServicesStandIn(SharedScript(), resource);
        }
        return status;
    }
};

class LocatorFactory final : public IClassFactory {
public:
    explicit LocatorFactory(Script script) : m_script(std::move(script)) {}

    virtual ~LocatorFactory() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        if (id != __uuidof(IClassFactory) && id != __uuidof(IUnknown)) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        *object = static_cast<IClassFactory*>(this);
        AddRef();
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(::InterlockedIncrement(&m_count)); }

    ULONG STDMETHODCALLTYPE Release() override {
        const LONG left = ::InterlockedDecrement(&m_count);
        if (left == 0) {
            delete this;
        }
        return static_cast<ULONG>(left);
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override {
        m_script->calls.emplace_back(L"CreateInstance");
        if (FAILED(m_script->createInstance)) {
            return m_script->createInstance;
        }
        auto* locator = new LocatorStandIn(m_script);
        const HRESULT status = locator->QueryInterface(id, object);
        locator->Release();
        return status;
    }

    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    Script m_script;
    LONG m_count = 1;
};

} // namespace

ScriptedWmi::ScriptedWmi(DWORD apartment) : m_script(std::make_shared<WmiScript>()) {
    if (FAILED(::CoInitializeEx(nullptr, apartment))) {
        throw std::runtime_error("the thread is in an apartment of the other kind");
    }
    auto* factory = new LocatorFactory(m_script);
    const HRESULT status = ::CoRegisterClassObject(LocatorClass, factory, CLSCTX_INPROC_SERVER,
                                                   REGCLS_MULTIPLEUSE, &m_registration);
    factory->Release();
    if (FAILED(status)) {
        ::CoUninitialize();
        throw std::runtime_error("the class of the locator could not be registered");
    }
}

ScriptedWmi::~ScriptedWmi() {
    ::CoRevokeClassObject(m_registration);
    ::CoUninitialize();
}

} // namespace test
