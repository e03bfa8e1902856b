#include "machine/models/wmi/wmi_objects.h"

#include "machine/text/folding.h"
#include "platform/wmi.h"
#include "unicode/utf.h"

#include <algorithm>
#include <charconv>

namespace machine {

namespace {

using platform::HResult;
namespace hresult = platform::hresult;
namespace wbem = platform::wbem;

} // namespace

WbemInstanceObject::WbemInstanceObject(const WmiQueryResult& result, std::size_t row)
    : m_class(result.source), m_instance(m_class->instances[row]), m_selected(result.selected) {}

HResult WbemInstanceObject::Get(std::u16string_view name, WmiDatum& datum) const {
    const std::u16string folded = Folded(name);
    if (folded == u"__PATH") {
        datum.value = m_instance.path;
        return hresult::Ok;
    }
    if (folded == u"__CLASS") {
        datum.value = m_class->name;
        return hresult::Ok;
    }
    const bool selected = m_selected.empty() || std::ranges::find(m_selected, folded) != m_selected.end();
    if (!selected || !m_class->propertyNames.contains(folded)) {
        return wbem::NotFound;
    }
    if (const auto found = m_instance.properties.find(folded); found != m_instance.properties.end()) {
        datum = found->second;
    }
    return hresult::Ok;
}

HResult WbemClassObject::Get(std::u16string_view name, WmiDatum& datum) const {
    const std::u16string folded = Folded(name);
    if (folded == u"__CLASS") {
        datum.value = definition->name;
        return hresult::Ok;
    }
    return definition->propertyNames.contains(folded) ? hresult::Ok : wbem::NotFound;
}

const std::u16string* WbemInputsObject::Find(std::u16string_view name) const {
    const auto found = std::ranges::find_if(
        names, [&](const std::u16string& known) { return Folded(known) == Folded(name); });
    return found == names.end() ? nullptr : &*found;
}

HResult WbemInputsObject::Get(std::u16string_view name, WmiDatum& datum) const {
    const std::u16string* known = Find(name);
    if (known == nullptr) {
        return wbem::NotFound;
    }
    if (const auto found = values.find(*known); found != values.end()) {
        datum.value = std::int64_t{found->second};
    }
    return hresult::Ok;
}

/// A string is converted into the property's type, or the call fails.
HResult WbemInputsObject::Put(std::u16string_view name, std::u16string_view text, std::int32_t cimType) {
    const std::u16string* known = Find(name);
    if (known == nullptr) {
        return wbem::NotFound;
    }
    const std::string digits = unicode::Utf8FromWide(text);
    std::uint32_t number = 0;
    const char* end = digits.data() + digits.size();
    const auto [last, problem] = std::from_chars(digits.data(), end, number);
    if (cimType != platform::cim_type::UInt32 || problem != std::errc{} || last != end) {
        return wbem::TypeMismatch;
    }
    values[*known] = number;
    return hresult::Ok;
}

HResult WbemOutputsObject::Get(std::u16string_view name, WmiDatum& datum) const {
    const std::u16string folded = Folded(name);
    for (const auto& [known, value] : m_outputs) {
        if (Folded(known) == folded) {
            datum = value;
            return hresult::Ok;
        }
    }
    return wbem::NotFound;
}

} // namespace machine
