#include "platform/wmi.h"

#include "machine/machine.h"
#include "machine/models/wmi/wmi_objects.h"
#include "machine/models/wmi/wmi_repository.h"
#include "machine/services/com_objects.h"
#include "machine/text/wide_text.h"
#include "observer/gate.h"
#include "platform/back_end.h"

#include <algorithm>

namespace VESK_BACK_END {

using machine::Call;
using machine::Current;
using machine::Operation;
using machine::Utf8FromWide;
using machine::WmiDatum;

namespace {

/// One operation on an object of the service: a planned failure first, then `body` with the object.
template <class Object, class Interface, class Note, class Body>
HResult Perform(Operation operation, Interface pointer, Note note, Body body) {
    Call call(operation);
    call.Note(note);
    if (call.Refused()) {
        return call.Answered(static_cast<HResult>(call.RefusalCode()));
    }
    auto* object = Current().com.Find<Object>(pointer);
    return call.Answered(object == nullptr ? hresult::Pointer : body(*object, call));
}

template <class Object, class Interface, class... Arguments>
HResult HandOut(Interface& made, Arguments&&... arguments) {
    made = Current().com.HandOut<Interface>(std::make_shared<Object>(std::forward<Arguments>(arguments)...));
    return hresult::Ok;
}

std::int32_t In32Bits(std::int64_t number) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
}

/// A property's value as it crosses the boundary.
struct ToWmiValue {
    WmiValue operator()(std::monostate) const { return {}; }

    WmiValue operator()(bool flag) const { return flag ? -1 : 0; } // VARIANT_TRUE

    WmiValue operator()(std::int64_t number) const { return In32Bits(number); }

    WmiValue operator()(const std::vector<std::int64_t>& numbers) const {
        std::vector<std::int32_t> narrow(numbers.size());
        std::ranges::transform(numbers, narrow.begin(), In32Bits);
        return narrow;
    }

    template <class Other>
    WmiValue operator()(const Other& other) const {
        return other;
    }
};

std::string Noted(const char16_t* text) {
    return Utf8FromWide(text);
}

} // namespace

HResult ConnectServer(WbemLocator locator, const char16_t* networkResource, WbemServices& services) {
    return Perform<machine::WbemLocatorObject>(
        Operation::ConnectServer, locator, [&] { return Noted(networkResource); },
        [&](machine::WbemLocatorObject&, const Call&) {
            const machine::WmiNamespace* space = Current().wmi.FindNamespace(networkResource);
            return space == nullptr ? wbem::InvalidNamespace
                                    : HandOut<machine::WbemServicesObject>(services, *space);
        });
}

HResult CoSetProxyBlanket(WbemServices proxy, const ProxyBlanket& blanket) {
    return Perform<machine::WbemServicesObject>(
        Operation::CoSetProxyBlanket, proxy,
        [&] {
            return std::to_string(blanket.authenticationService) + ' ' +
                   std::to_string(blanket.authorizationService) + ' ' +
                   std::to_string(blanket.authenticationLevel) + ' ' +
                   std::to_string(blanket.impersonationLevel) + ' ' + std::to_string(blanket.capabilities);
        },
        [](machine::WbemServicesObject&, const Call&) { return hresult::Ok; });
}

HResult ExecQuery(WbemServices services, const char16_t* queryLanguage, const char16_t* query,
                  std::int32_t flags, WbemEnumerator& rows) {
    return Perform<machine::WbemServicesObject>(
        Operation::ExecQuery, services,
        [&] { return Noted(queryLanguage) + " flags " + std::to_string(flags) + ' ' + Noted(query); },
        [&](const machine::WbemServicesObject& here, const Call&) {
            if (machine::Folded(queryLanguage) != u"WQL") {
                return wbem::InvalidQueryType;
            }
            Current().CatchUp();
            machine::WmiQueryResult result = machine::WmiRepository::Run(here.space, query);
            // Only a caller who waits for the whole answer is told of trouble here.
            if ((flags & wbem::ReturnImmediately) == 0 && Failed(result.status)) {
                return result.status;
            }
            return HandOut<machine::WbemRowsObject>(rows, std::move(result));
        });
}

HResult Next(WbemEnumerator rows, std::uint32_t timeout, WbemObject& row, std::uint32_t& returned) {
    returned = 0;
    return Perform<machine::WbemRowsObject>(
        Operation::Next, rows,
        [&] { return timeout == wbem::Infinite ? "infinite" : std::to_string(timeout); },
        [&](machine::WbemRowsObject& here, const Call& call) {
            if (Failed(here.result.status)) {
                return here.result.status;
            }
            if (call.Emptied() || here.next == here.result.rows.size()) {
                return wbem::NoMoreRows;
            }
            returned = 1;
            return HandOut<machine::WbemInstanceObject>(row, here.result, here.result.rows[here.next++]);
        });
}

HResult Get(WbemObject object, const char16_t* name, WmiValue& value) {
    value = {};
    return Perform<machine::WbemThing>(
        Operation::Get, object, [&] { return Noted(name); },
        [&](const machine::WbemThing& here, const Call& call) {
            WmiDatum datum;
            const HResult status = here.Get(name, datum);
            if (!Failed(status) && !call.Emptied()) {
                value = std::visit(ToWmiValue{}, datum.value);
            }
            return status;
        });
}

HResult GetObject(WbemServices services, const char16_t* objectPath, WbemObject& definition) {
    return Perform<machine::WbemServicesObject>(
        Operation::GetObject, services, [&] { return Noted(objectPath); },
        [&](const machine::WbemServicesObject& here, const Call&) {
            const auto found = here.space.find(machine::Folded(objectPath));
            return found == here.space.end() ? wbem::NotFound
                                             : HandOut<machine::WbemClassObject>(definition, found->second);
        });
}

HResult GetMethod(WbemObject definition, const char16_t* name, WbemObject& inSignature) {
    return Perform<machine::WbemClassObject>(
        Operation::GetMethod, definition, [&] { return Noted(name); },
        [&](const machine::WbemClassObject& here, const Call& call) {
            const machine::WmiMethods* methods = here.definition->methods;
            auto inputs = methods == nullptr ? std::nullopt : methods->Inputs(name);
            if (!inputs) {
                return wbem::NotFound;
            }
            return inputs->empty() || call.Emptied()
                       ? hresult::Ok
                       : HandOut<machine::WbemInputsObject>(inSignature, std::move(*inputs));
        });
}

HResult SpawnInstance(WbemObject definition, WbemObject& instance) {
    return Perform<machine::WbemInputsObject>(
        Operation::SpawnInstance, definition, [] { return std::string(); },
        [&](const machine::WbemInputsObject& here, const Call&) {
            return HandOut<machine::WbemInputsObject>(instance, here.names);
        });
}

HResult Put(WbemObject object, const char16_t* name, std::u16string_view text, std::int32_t cimType) {
    return Perform<machine::WbemThing>(
        Operation::Put, object,
        [&] { return Noted(name) + " \"" + Utf8FromWide(text) + "\" type " + std::to_string(cimType); },
        [&](machine::WbemThing& here, const Call&) { return here.Put(name, text, cimType); });
}

HResult ExecMethod(WbemServices services, const char16_t* objectPath, const char16_t* methodName,
                   WbemObject inParameters, WbemObject& outParameters) {
    return Perform<machine::WbemServicesObject>(
        Operation::ExecMethod, services, [&] { return Noted(methodName) + " on " + Noted(objectPath); },
        [&](const machine::WbemServicesObject& here, const Call& call) {
            const auto instance = machine::WmiRepository::FindInstance(here.space, objectPath);
            if (instance == nullptr) {
                return wbem::NotFound;
            }
            if (instance->methods == nullptr || !instance->methods->Inputs(methodName)) {
                return wbem::InvalidMethod;
            }
            const auto* inputs = Current().com.Find<machine::WbemInputsObject>(inParameters);
            machine::WmiMethodAnswer answer = instance->methods->Execute(
                objectPath, methodName, inputs != nullptr ? inputs->values : machine::WmiArguments{});
            if (Failed(answer.status) || !answer.out || call.Emptied()) {
                return answer.status;
            }
            HandOut<machine::WbemOutputsObject>(outParameters, std::move(*answer.out));
            return answer.status;
        });
}

} // namespace VESK_BACK_END
