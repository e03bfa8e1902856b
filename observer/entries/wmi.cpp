#include "platform/wmi.h"

#include "observer/observe.h"

namespace platform {

using namespace observer::decorators;

namespace {

/// Of the two that are overloaded by how the value is taken.
constexpr auto Property = [](WbemObject object, const char16_t* name, auto& value) {
    return back_end::Get(object, name, value);
};

} // namespace

HResult ConnectServer(WbemLocator locator, const char16_t* networkResource, WbemServices& services) {
    return Observe<Operation::ConnectServer>(
        back_end::ConnectServer, In("locator", locator), In("resource", networkResource),
        Opens("services", services, HandleKind::WbemServices, networkResource));
}

HResult CoSetProxyBlanket(WbemServices proxy, const ProxyBlanket& blanket) {
    return Observe<Operation::CoSetProxyBlanket>(back_end::CoSetProxyBlanket, In("proxy", proxy),
                                                 In("blanket", blanket));
}

HResult ExecQuery(WbemServices services, const char16_t* queryLanguage, const char16_t* query,
                  std::int32_t flags, WbemEnumerator& rows) {
    return Observe<Operation::ExecQuery>(back_end::ExecQuery, In("services", services),
                                         In("language", queryLanguage), In("query", query),
                                         In("flags", flags), Opens("rows", rows));
}

HResult Next(WbemEnumerator rows, std::uint32_t timeout, WbemObject& row, std::uint32_t& returned) {
    return Observe<Operation::Next>(back_end::Next, In("rows", rows), Hex("timeout", timeout),
                                    Opens("row", row), OutAlways("returned", returned));
}

HResult Get(WbemObject object, const char16_t* name, WmiValue& value) {
    return Observe<Operation::Get>(Property, In("object", object), In("name", name),
                                   OutVariant("value", value));
}

HResult Get(WbemObject object, const char16_t* name, VariantWord& word) {
    return Observe<Operation::Get>(Property, In("object", object), In("name", name),
                                   OutVariant("value", word));
}

HResult GetObject(WbemServices services, const char16_t* objectPath, WbemObject& definition) {
    return Observe<Operation::GetObject>(back_end::GetObject, In("services", services),
                                         In("path", objectPath), Opens("definition", definition));
}

HResult GetMethod(WbemObject definition, const char16_t* name, WbemObject& inSignature) {
    return Observe<Operation::GetMethod>(back_end::GetMethod, In("definition", definition), In("name", name),
                                         Opens("signature", inSignature));
}

HResult SpawnInstance(WbemObject definition, WbemObject& instance) {
    return Observe<Operation::SpawnInstance>(back_end::SpawnInstance, In("definition", definition),
                                             Opens("instance", instance));
}

HResult Put(WbemObject object, const char16_t* name, std::u16string_view text, std::int32_t cimType) {
    return Observe<Operation::Put>(back_end::Put, In("object", object), In("name", name), In("text", text),
                                   In("type", cimType));
}

HResult ExecMethod(WbemServices services, const char16_t* objectPath, const char16_t* methodName,
                   WbemObject inParameters, WbemObject& outParameters) {
    return Observe<Operation::ExecMethod>(back_end::ExecMethod, In("services", services),
                                          In("path", objectPath), In("method", methodName),
                                          In("parameters", inParameters), Opens("out", outParameters));
}

} // namespace platform
