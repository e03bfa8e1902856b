#include "platform/wmi.h"

#include "machine/machine.h"
#include "machine/models/wmi/wmi_objects.h"
#include "machine/models/wmi/wmi_repository.h"
#include "machine/text/folding.h"
#include "platform/back_end.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace VESK_BACK_END {
namespace {

using machine::WmiDatum;

template <class Object, class Interface, class... Arguments>
HResult HandOut(machine::ComObjects& com, Interface& made, Arguments&&... arguments) {
    auto object = std::make_shared<Object>(std::forward<Arguments>(arguments)...);
    made = com.HandOut<Interface>(std::move(object));
    return hresult::Ok;
}

std::int32_t In32Bits(std::int64_t number) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
}

/// A property's value as it crosses the boundary.
struct ToWmiValue {
    std::int32_t lowerBound;

    WmiValue operator()(std::monostate) const { return {}; }

    WmiValue operator()(bool flag) const { return flag ? -1 : 0; } // VARIANT_TRUE

    WmiValue operator()(std::int64_t number) const { return In32Bits(number); }

    WmiValue operator()(const std::vector<std::int64_t>& numbers) const {
        std::vector<std::int32_t> narrow(numbers.size());
        std::ranges::transform(numbers, narrow.begin(), In32Bits);
        return narrow;
    }

    WmiValue operator()(const std::vector<std::byte>& bytes) const {
        return platform::WmiBytes{lowerBound, bytes};
    }

    template <class Other>
    WmiValue operator()(const Other& other) const {
        return other;
    }
};

/// The first bits of its VARIANT. Of strings and arrays these are an address, which on this machine is 0.
struct ToVariantWord {
    std::int32_t operator()(bool flag) const { return flag ? 0xFFFF : 0; } // VARIANT_TRUE in 16 bits

    std::int32_t operator()(std::int64_t number) const { return In32Bits(number); }

    template <class Other>
    std::int32_t operator()(const Other&) const {
        return 0;
    }
};

/// Looks a property up.
HResult Find(WbemObject object, const char16_t* name, WmiDatum& datum) {
    const auto machine = machine::Current();
    const auto* const here = machine->com.Find<machine::WbemThing>(object);
    return here == nullptr ? hresult::Pointer : here->Get(name, datum);
}

} // namespace

HResult ConnectServer(WbemLocator locator, const char16_t* networkResource, WbemServices& services) {
    const auto machine = machine::Current();
    if (machine->com.Find<machine::WbemLocatorObject>(locator) == nullptr) {
        return hresult::Pointer;
    }
    const machine::WmiNamespace* const space = machine->wmi.FindNamespace(networkResource);
    return space == nullptr ? wbem::InvalidNamespace
                            : HandOut<machine::WbemServicesObject>(machine->com, services, *space);
}

HResult CoSetProxyBlanket(WbemServices proxy, const ProxyBlanket&) {
    return machine::Current()->com.Find<machine::WbemServicesObject>(proxy) == nullptr ? hresult::Pointer
                                                                                       : hresult::Ok;
}

HResult ExecQuery(WbemServices services, const char16_t* queryLanguage, const char16_t* query,
                  std::int32_t flags, WbemEnumerator& rows) {
    const auto machine = machine::Current();
    const auto* const here = machine->com.Find<machine::WbemServicesObject>(services);
    if (here == nullptr) {
        return hresult::Pointer;
    }
    if (machine::Folded(queryLanguage) != u"WQL") {
        return wbem::InvalidQueryType;
    }
    machine->AdvanceModels();
    machine::WmiQueryResult result = machine::WmiRepository::Run(here->space, query);
    // A caller that does not wait for the whole answer gets its failure from Next.
    if ((flags & wbem::ReturnImmediately) == 0 && Failed(result.status)) {
        return result.status;
    }
    return HandOut<machine::WbemRowsObject>(machine->com, rows, std::move(result));
}

HResult Next(WbemEnumerator rows, std::uint32_t, WbemObject& row, std::uint32_t& returned) {
    const auto machine = machine::Current();
    returned = 0;
    auto* const here = machine->com.Find<machine::WbemRowsObject>(rows);
    if (here == nullptr) {
        return hresult::Pointer;
    }
    if (Failed(here->result.status)) {
        return here->result.status;
    }
    if (here->next == here->result.rows.size()) {
        return wbem::NoMoreRows;
    }
    returned = 1;
    return HandOut<machine::WbemInstanceObject>(machine->com, row, here->result,
                                                here->result.rows[here->next++]);
}

HResult Get(WbemObject object, const char16_t* name, WmiValue& value) {
    WmiDatum datum;
    const HResult status = Find(object, name, datum);
    value = Failed(status) ? WmiValue() : std::visit(ToWmiValue{datum.lowerBound}, datum.value);
    return status;
}

HResult Get(WbemObject object, const char16_t* name, VariantWord& word) {
    WmiDatum datum;
    const HResult status = Find(object, name, datum);
    word.bits = Failed(status) ? 0 : std::visit(ToVariantWord{}, datum.value);
    return status;
}

HResult GetObject(WbemServices services, const char16_t* objectPath, WbemObject& definition) {
    const auto machine = machine::Current();
    const auto* const here = machine->com.Find<machine::WbemServicesObject>(services);
    if (here == nullptr) {
        return hresult::Pointer;
    }
    const auto found = here->space.find(machine::Folded(objectPath));
    return found == here->space.end()
               ? wbem::NotFound
               : HandOut<machine::WbemClassObject>(machine->com, definition, found->second);
}

HResult GetMethod(WbemObject definition, const char16_t* name, WbemObject& inSignature) {
    const auto machine = machine::Current();
    const auto* const here = machine->com.Find<machine::WbemClassObject>(definition);
    if (here == nullptr) {
        return hresult::Pointer;
    }
    const machine::WmiMethods* const methods = here->definition->methods;
    auto inputs = methods == nullptr ? std::nullopt : methods->Inputs(name);
    if (!inputs) {
        return wbem::NotFound;
    }
    return inputs->empty()
               ? hresult::Ok
               : HandOut<machine::WbemInputsObject>(machine->com, inSignature, std::move(*inputs));
}

HResult SpawnInstance(WbemObject definition, WbemObject& instance) {
    const auto machine = machine::Current();
    const auto* const here = machine->com.Find<machine::WbemInputsObject>(definition);
    return here == nullptr ? hresult::Pointer
                           : HandOut<machine::WbemInputsObject>(machine->com, instance, here->names);
}

HResult Put(WbemObject object, const char16_t* name, std::u16string_view text, std::int32_t cimType) {
    const auto machine = machine::Current();
    auto* const here = machine->com.Find<machine::WbemThing>(object);
    return here == nullptr ? hresult::Pointer : here->Put(name, text, cimType);
}

HResult ExecMethod(WbemServices services, const char16_t* objectPath, const char16_t* methodName,
                   WbemObject inParameters, WbemObject& outParameters) {
    const auto machine = machine::Current();
    const auto* const here = machine->com.Find<machine::WbemServicesObject>(services);
    if (here == nullptr) {
        return hresult::Pointer;
    }
    const auto instance = machine::WmiRepository::FindInstance(here->space, objectPath);
    if (instance == nullptr) {
        return wbem::NotFound;
    }
    if (instance->methods == nullptr || !instance->methods->Inputs(methodName)) {
        return wbem::InvalidMethod;
    }
    const auto* const inputs = machine->com.Find<machine::WbemInputsObject>(inParameters);
    machine::WmiMethodAnswer answer = instance->methods->Execute(
        objectPath, methodName, inputs != nullptr ? inputs->values : machine::WmiArguments{});
    if (!Failed(answer.status) && answer.out) {
        HandOut<machine::WbemOutputsObject>(machine->com, outParameters, std::move(*answer.out));
    }
    return answer.status;
}

} // namespace VESK_BACK_END
