// The COM objects of the simulated WMI service.
#pragma once

#include "machine/models/com/com_objects.h"
#include "machine/models/wmi/wmi_repository.h"

#include <memory>
#include <string>
#include <utility>

namespace machine {

class WbemLocatorObject final : public ComObject {
public:
    [[nodiscard]] std::string_view InterfaceName() const override { return "IWbemLocator"; }
};

class WbemServicesObject final : public ComObject {
public:
    explicit WbemServicesObject(const WmiNamespace& connected) : space(connected) {}

    [[nodiscard]] std::string_view InterfaceName() const override { return "IWbemServices"; }

    const WmiNamespace& space;
};

class WbemRowsObject final : public ComObject {
public:
    explicit WbemRowsObject(WmiQueryResult answer) : result(std::move(answer)) {}

    [[nodiscard]] std::string_view InterfaceName() const override { return "IEnumWbemClassObject"; }

    const WmiQueryResult result;
    std::size_t next = 0;
};

/// An instance that a query returned.
class WbemInstanceObject final : public WbemThing {
public:
    WbemInstanceObject(const WmiQueryResult& result, std::size_t row);

    platform::HResult Get(std::u16string_view name, WmiDatum& datum) const override;

private:
    std::shared_ptr<const WmiClass> m_class;
    const WmiInstance& m_instance;
    std::vector<std::u16string> m_selected;
};

/// A class's definition.
class WbemClassObject final : public WbemThing {
public:
    explicit WbemClassObject(std::shared_ptr<const WmiClass> row) : definition(std::move(row)) {}

    platform::HResult Get(std::u16string_view name, WmiDatum& datum) const override;

    const std::shared_ptr<const WmiClass> definition;
};

/// The inputs of a method, as its definition lists them or as a caller fills them in.
class WbemInputsObject final : public WbemThing {
public:
    explicit WbemInputsObject(std::vector<std::u16string> inputNames) : names(std::move(inputNames)) {}

    platform::HResult Get(std::u16string_view name, WmiDatum& datum) const override;
    platform::HResult Put(std::u16string_view name, std::u16string_view text, std::int32_t cimType) override;

    const std::vector<std::u16string> names;
    WmiArguments values;

private:
    [[nodiscard]] const std::u16string* Find(std::u16string_view name) const;
};

/// The outputs of a method.
class WbemOutputsObject final : public WbemThing {
public:
    explicit WbemOutputsObject(WmiRow outputs) : m_outputs(std::move(outputs)) {}

    platform::HResult Get(std::u16string_view name, WmiDatum& datum) const override;

private:
    WmiRow m_outputs;
};

} // namespace machine
