#include <windows.h>

// This macro of windows.h would rename an operation of the boundary.
#undef GetObject

#include "platform/wmi.h"

#include "platform/back_end.h"
#include "platform/windows/support/bstr.h"
#include "platform/windows/support/native.h"
#include "platform/windows/support/variant_value.h"

#include <wbemidl.h>

namespace VESK_BACK_END {
namespace {

IWbemLocator* Native(WbemLocator locator) {
    return reinterpret_cast<IWbemLocator*>(locator);
}

IWbemServices* Native(WbemServices services) {
    return reinterpret_cast<IWbemServices*>(services);
}

IEnumWbemClassObject* Native(WbemEnumerator rows) {
    return reinterpret_cast<IEnumWbemClassObject*>(rows);
}

IWbemClassObject* Native(WbemObject object) {
    return reinterpret_cast<IWbemClassObject*>(object);
}

} // namespace

HResult ConnectServer(WbemLocator locator, const char16_t* networkResource, WbemServices& services) {
    const Bstr resource(networkResource);
    IWbemServices* connected = nullptr;
    const HRESULT status = Native(locator)->ConnectServer(resource.Get(), nullptr, nullptr, nullptr, 0,
                                                          nullptr, nullptr, &connected);
    return Made(status, connected, services);
}

HResult CoSetProxyBlanket(WbemServices proxy, const ProxyBlanket& blanket) {
    return ::CoSetProxyBlanket(Native(proxy), blanket.authenticationService, blanket.authorizationService,
                               nullptr, blanket.authenticationLevel, blanket.impersonationLevel, nullptr,
                               blanket.capabilities);
}

HResult ExecQuery(WbemServices services, const char16_t* queryLanguage, const char16_t* query,
                  std::int32_t flags, WbemEnumerator& rows) {
    const Bstr language(queryLanguage);
    const Bstr text(query);
    IEnumWbemClassObject* found = nullptr;
    const HRESULT status = Native(services)->ExecQuery(language.Get(), text.Get(), flags, nullptr, &found);
    return Made(status, found, rows);
}

HResult Next(WbemEnumerator rows, std::uint32_t timeout, WbemObject& row, std::uint32_t& returned) {
    IWbemClassObject* object = nullptr;
    ULONG count = 0;
    const HRESULT status = Native(rows)->Next(static_cast<LONG>(timeout), 1, &object, &count);
    returned = count;
    if (count != 0) {
        row = WbemObject{reinterpret_cast<std::uintptr_t>(object)};
    }
    return status;
}

HResult Get(WbemObject object, const char16_t* name, WmiValue& value) {
    OwnedVariant variant;
    const HRESULT status = Native(object)->Get(Wide(name), 0, &variant.Raw(), nullptr, nullptr);
    value = SUCCEEDED(status) ? ValueOf(variant.Raw()) : WmiValue{};
    value.variantType = variant.Raw().vt;
    return status;
}

HResult Get(WbemObject object, const char16_t* name, VariantWord& word) {
    OwnedVariant variant;
    const HRESULT status = Native(object)->Get(Wide(name), 0, &variant.Raw(), nullptr, nullptr);
    word = SUCCEEDED(status) ? WordOf(variant.Raw()) : VariantWord{};
    return status;
}

HResult GetObject(WbemServices services, const char16_t* objectPath, WbemObject& definition) {
    const Bstr path(objectPath);
    IWbemClassObject* object = nullptr;
    const HRESULT status = Native(services)->GetObject(path.Get(), 0, nullptr, &object, nullptr);
    return Made(status, object, definition);
}

HResult GetMethod(WbemObject definition, const char16_t* name, WbemObject& inSignature) {
    IWbemClassObject* signature = nullptr;
    const HRESULT status = Native(definition)->GetMethod(Wide(name), 0, &signature, nullptr);
    return Made(status, signature, inSignature);
}

HResult SpawnInstance(WbemObject definition, WbemObject& instance) {
    IWbemClassObject* spawned = nullptr;
    const HRESULT status = Native(definition)->SpawnInstance(0, &spawned);
    return Made(status, spawned, instance);
}

HResult Put(WbemObject object, const char16_t* name, std::u16string_view text, std::int32_t cimType) {
    OwnedVariant variant;
    variant.Raw().bstrVal = Bstr(text).Detach();
    variant.Raw().vt = VT_BSTR;
    return Native(object)->Put(Wide(name), 0, &variant.Raw(), cimType);
}

HResult ExecMethod(WbemServices services, const char16_t* objectPath, const char16_t* methodName,
                   WbemObject inParameters, WbemObject& outParameters) {
    const Bstr path(objectPath);
    const Bstr method(methodName);
    IWbemClassObject* out = nullptr;
    const HRESULT status = Native(services)->ExecMethod(path.Get(), method.Get(), 0, nullptr,
                                                        Native(inParameters), &out, nullptr);
    return Made(status, out, outParameters);
}

} // namespace VESK_BACK_END
