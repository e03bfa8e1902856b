#include "wmi_service.h"

#include "platform/simulated/machine.h"
#include "platform/simulated/wide_text.h"
#include "platform/simulated/wmi_objects.h"

// The macro would rename an operation of the machine.
#undef GetObject
#include "platform/wmi.h"

#include <variant>

namespace twin {
namespace {

namespace wbem = platform::wbem;
using test::ScriptedRow;
using test::ScriptedValue;

std::wstring Wide(const std::u16string& text) {
    return {text.begin(), text.end()};
}

std::u16string Plain(const std::wstring& text) {
    return {text.begin(), text.end()};
}

/// A property as WMI's own VARIANTs hold it: whole numbers of 32 bits and arrays of them as VT_I4, whatever their
/// sign; larger ones came as text already.
struct ToVariant {
    LONG lowerBound;

    ScriptedValue operator()(std::monostate) const { return {}; }

    ScriptedValue operator()(bool flag) const {
        return ScriptedValue::Number(VT_BOOL, flag ? VARIANT_TRUE : VARIANT_FALSE);
    }

    ScriptedValue operator()(std::int64_t number) const { return ScriptedValue::Number(VT_I4, number); }

    ScriptedValue operator()(const std::u16string& text) const { return ScriptedValue::Text(Wide(text)); }

    ScriptedValue operator()(const std::vector<std::int64_t>& numbers) const {
        return ScriptedValue::Numbers(VT_I4, {numbers.begin(), numbers.end()}, lowerBound);
    }

    ScriptedValue operator()(const std::vector<std::u16string>& texts) const {
        std::vector<std::wstring> wide;
        for (const std::u16string& text : texts) {
            wide.push_back(Wide(text));
        }
        return ScriptedValue::Texts(wide, lowerBound);
    }

    ScriptedValue operator()(const std::vector<std::byte>& bytes) const {
        std::vector<std::uint8_t> plain;
        for (const std::byte byte : bytes) {
            plain.push_back(std::to_integer<std::uint8_t>(byte));
        }
        return ScriptedValue::Bytes(plain, lowerBound);
    }
};

ScriptedValue VariantOf(const machine::WmiDatum& datum) {
    return std::visit(ToVariant{datum.lowerBound}, datum.value);
}

/// Everything that the instance can be asked for.
ScriptedRow RowOf(const machine::WmiQueryResult& result, std::size_t number) {
    const machine::WbemInstanceObject instance(result, number);
    ScriptedRow row;
    const auto add = [&](const std::u16string& name) {
        machine::WmiDatum datum;
        if (!platform::Failed(instance.Get(name, datum))) {
            row[Wide(name)] = VariantOf(datum);
        }
    };
    for (const std::u16string& name : result.source->propertyNames) {
        add(name);
    }
    add(u"__PATH");
    add(u"__CLASS");
    return row;
}

class MachineWmi final : public test::WmiService {
public:
    HRESULT Connect(const std::wstring& space) override {
        return SpaceAt(space) == nullptr ? wbem::InvalidNamespace : S_OK;
    }

    HRESULT Query(const std::wstring& space, const std::wstring& query,
                  std::vector<ScriptedRow>& rows) override {
        const machine::WmiQueryResult result = machine::WmiRepository::Run(*SpaceAt(space), Plain(query));
        for (const std::size_t number : result.rows) {
            rows.push_back(RowOf(result, number));
        }
        return result.status;
    }

    HRESULT FindClass(const std::wstring& space, const std::wstring& name) override {
        return ClassAt(space, name) == nullptr ? wbem::NotFound : S_OK;
    }

    std::optional<std::vector<std::wstring>> MethodInputs(const std::wstring& space,
                                                          const std::wstring& className,
                                                          const std::wstring& method) override {
        const auto found = ClassAt(space, className);
        if (found == nullptr || found->methods == nullptr) {
            return std::nullopt;
        }
        const auto inputs = found->methods->Inputs(Plain(method));
        if (!inputs) {
            return std::nullopt;
        }
        std::vector<std::wstring> wide;
        for (const std::u16string& name : *inputs) {
            wide.push_back(Wide(name));
        }
        return wide;
    }

    HRESULT Execute(const std::wstring& space, const test::ScriptedCall& call,
                    std::optional<ScriptedRow>& out) override {
        const auto instance = machine::WmiRepository::FindInstance(*SpaceAt(space), Plain(call.path));
        if (instance == nullptr) {
            return wbem::NotFound;
        }
        const auto names =
            instance->methods == nullptr ? std::nullopt : instance->methods->Inputs(Plain(call.method));
        if (!names) {
            return wbem::InvalidMethod;
        }
        // The type check that the service itself makes when an input is put.
        machine::WbemInputsObject inputs(*names);
        for (const auto& [name, value] : call.in) {
            const std::u16string text = Plain(value.Described());
            const bool put = value.Described() != ScriptedValue().Described();
            if (put && platform::Failed(inputs.Put(Plain(name), text, platform::cim_type::UInt32))) {
                return wbem::TypeMismatch;
            }
        }
        const machine::WmiMethodAnswer answer =
            instance->methods->Execute(Plain(call.path), Plain(call.method), inputs.values);
        if (answer.out) {
            out.emplace();
            for (const auto& [name, datum] : *answer.out) {
                (*out)[Wide(name)] = VariantOf(datum);
            }
        }
        return answer.status;
    }

private:
    static const machine::WmiNamespace* SpaceAt(const std::wstring& path) {
        return machine::Current().wmi.FindNamespace(Plain(path));
    }

    static std::shared_ptr<const machine::WmiClass> ClassAt(const std::wstring& space,
                                                            const std::wstring& name) {
        const auto found = SpaceAt(space)->find(machine::Folded(Plain(name)));
        return found == SpaceAt(space)->end() ? nullptr : found->second;
    }
};

} // namespace

std::shared_ptr<test::WmiService> MachineWmiService() {
    return std::make_shared<MachineWmi>();
}

} // namespace twin
