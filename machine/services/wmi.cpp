#include "platform/wmi.h"

#include "machine/machine.h"
#include "machine/models/com_objects.h"
#include "machine/models/wmi/wmi_repository.h"
#include "machine/models/wmi/wql.h"
#include "machine/text/folding.h"
#include "platform/back_end.h"

#include <algorithm>
#include <utility>

namespace VESK_BACK_END {
namespace {

using machine::WbemClassObject;
using machine::WbemRowsObject;
using machine::WbemServicesObject;
using machine::WmiDatum;

template <class Interface, class Object>
HResult HandOut(machine::Machine& machine, Interface& made, Object object) {
    made = machine.handles.Open<Interface>(std::move(object));
    return hresult::Ok;
}

std::int32_t In32Bits(std::int64_t number) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
}

/// The VARENUM of each kind of value, in the order of WmiDatum.
constexpr std::uint16_t VariantTypes[] = {1, 11, 3, 8, 0x2003, 0x2008, 0x2011};

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

/// Looks a property up; null with a failure if there is none.
HResult Find(machine::Machine& machine, WbemObject object, const char16_t* name, const WmiDatum*& datum) {
    auto* const here = machine.handles.Find<WbemClassObject>(object);
    datum = here == nullptr ? nullptr : here->Find(name);
    return here == nullptr ? hresult::Pointer : datum == nullptr ? wbem::NotFound : hresult::Ok;
}

} // namespace

HResult ConnectServer(WbemLocator locator, const char16_t* networkResource, WbemServices& services) {
    const auto machine = machine::Current();
    if (machine->handles.Find<machine::WbemLocatorObject>(locator) == nullptr) {
        return hresult::Pointer;
    }
    const machine::WmiNamespace* const space = machine->wmi.FindNamespace(networkResource);
    return space == nullptr ? wbem::InvalidNamespace : HandOut(*machine, services, WbemServicesObject{space});
}

HResult CoSetProxyBlanket(WbemServices proxy, const ProxyBlanket&) {
    return machine::Current()->handles.Find<WbemServicesObject>(proxy) == nullptr ? hresult::Pointer
                                                                                  : hresult::Ok;
}

HResult ExecQuery(WbemServices services, const char16_t* queryLanguage, const char16_t* query,
                  std::int32_t flags, WbemEnumerator& rows) {
    const auto machine = machine::Current();
    const auto* const here = machine->handles.Find<WbemServicesObject>(services);
    if (here == nullptr) {
        return hresult::Pointer;
    }
    if (machine::Folded(queryLanguage) != u"WQL") {
        return wbem::InvalidQueryType;
    }
    machine->AdvanceModels();
    WbemRowsObject result = machine::WmiRepository::Run(*here->space, query);
    // A caller that does not wait for the whole answer gets its failure from Next.
    if ((flags & wbem::ReturnImmediately) == 0 && Failed(result.status)) {
        return result.status;
    }
    return HandOut(*machine, rows, std::move(result));
}

HResult Next(WbemEnumerator rows, std::uint32_t, WbemObject& row, std::uint32_t& returned) {
    const auto machine = machine::Current();
    returned = 0;
    auto* const here = machine->handles.Find<WbemRowsObject>(rows);
    if (here == nullptr || Failed(here->status)) {
        return here == nullptr ? hresult::Pointer : here->status;
    }
    if (here->next == here->rows.size()) {
        return wbem::NoMoreRows;
    }
    returned = 1;
    return HandOut(*machine, row, WbemClassObject{*here->rows[here->next++]});
}

HResult Get(WbemObject object, const char16_t* name, WmiValue& value) {
    const auto machine = machine::Current();
    const WmiDatum* datum = nullptr;
    const HResult status = Find(*machine, object, name, datum);
    value = datum == nullptr ? WmiValue() : std::visit(ToWmiValue{datum->lowerBound}, datum->value);
    value.variantType = datum == nullptr ? std::uint16_t{0} : VariantTypes[datum->value.index()];
    return status;
}

HResult Get(WbemObject object, const char16_t* name, VariantWord& word) {
    const auto machine = machine::Current();
    const WmiDatum* datum = nullptr;
    const HResult status = Find(*machine, object, name, datum);
    word.bits = datum == nullptr ? 0 : std::visit(ToVariantWord{}, datum->value);
    word.variantType = datum == nullptr ? std::uint16_t{0} : VariantTypes[datum->value.index()];
    return status;
}

HResult GetObject(WbemServices services, const char16_t* objectPath, WbemObject& definition) {
    const auto machine = machine::Current();
    const auto* const here = machine->handles.Find<WbemServicesObject>(services);
    if (here == nullptr) {
        return hresult::Pointer;
    }
    const auto found = here->space->find(machine::Folded(objectPath));
    if (found == here->space->end()) {
        return wbem::NotFound;
    }
    return HandOut(*machine, definition, WbemClassObject{found->second.definition, &found->second});
}

HResult GetMethod(WbemObject definition, const char16_t* name, WbemObject& inSignature) {
    const auto machine = machine::Current();
    const auto* const here = machine->handles.Find<WbemClassObject>(definition);
    if (here == nullptr || here->definition == nullptr) {
        return hresult::Pointer;
    }
    const auto method = here->definition->methods.find(machine::Folded(name));
    if (method == here->definition->methods.end()) {
        return wbem::NotFound;
    }
    WbemClassObject signature{.properties = {}, .isInputs = true};
    for (const std::u16string& input : method->second.inputs) {
        signature.properties[machine::Folded(input)] = {};
    }
    return HandOut(*machine, inSignature, std::move(signature));
}

HResult SpawnInstance(WbemObject definition, WbemObject& instance) {
    const auto machine = machine::Current();
    const auto* const here = machine->handles.Find<WbemClassObject>(definition);
    return here == nullptr || !here->isInputs ? hresult::Pointer : HandOut(*machine, instance, *here);
}

/// A string is converted into the property's type, or the call fails.
HResult Put(WbemObject object, const char16_t* name, std::u16string_view text, std::int32_t cimType) {
    const auto machine = machine::Current();
    auto* const here = machine->handles.Find<WbemClassObject>(object);
    if (here == nullptr || !here->isInputs) {
        return here == nullptr ? hresult::Pointer : wbem::AccessDenied;
    }
    WmiDatum* const input = here->Find(name);
    if (input == nullptr) {
        return wbem::NotFound;
    }
    const auto number = machine::WholeNumber(text);
    if (cimType != cim_type::UInt32 || !number || *number < 0 || *number > 0xFFFFFFFF) {
        return wbem::TypeMismatch;
    }
    input->value = *number;
    return hresult::Ok;
}

HResult ExecMethod(WbemServices services, const char16_t* objectPath, const char16_t* methodName,
                   WbemObject inParameters, WbemObject& outParameters) {
    const auto machine = machine::Current();
    const auto* const here = machine->handles.Find<WbemServicesObject>(services);
    if (here == nullptr) {
        return hresult::Pointer;
    }
    const auto* const definition = machine::WmiRepository::ClassOfInstance(*here->space, objectPath);
    if (definition == nullptr) {
        return wbem::NotFound;
    }
    const auto method = definition->methods.find(machine::Folded(methodName));
    if (method == definition->methods.end()) {
        return wbem::InvalidMethod;
    }
    const auto* const inputs = machine->handles.Find<WbemClassObject>(inParameters);
    machine::WmiRow out;
    const HResult status =
        method->second.execute(inputs != nullptr ? inputs->properties : machine::WmiRow{}, out);
    return Failed(status) ? status
                          : HandOut(*machine, outParameters, WbemClassObject{machine::FoldedRow(out)});
}

} // namespace VESK_BACK_END
