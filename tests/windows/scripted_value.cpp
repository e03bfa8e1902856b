#include "scripted_value.h"

#include <cstring>
#include <stdexcept>

namespace test {
namespace {

void Must(HRESULT status) {
    if (FAILED(status)) {
        throw std::runtime_error("a VARIANT could not be made");
    }
}

/// VariantCopy does not change its source, whatever a header says.
HRESULT Copy(VARIANT& target, const VARIANT& source) {
    return ::VariantCopy(&target, const_cast<VARIANT*>(&source));
}

SAFEARRAY* NewVector(VARTYPE type, LONG lowerBound, std::size_t count) {
    SAFEARRAY* array = ::SafeArrayCreateVector(type, lowerBound, static_cast<ULONG>(count));
    if (array == nullptr) {
        throw std::runtime_error("an array could not be made");
    }
    return array;
}

} // namespace

ScriptedValue::ScriptedValue() {
    ::VariantInit(&m_variant);
    m_variant.vt = VT_NULL;
}

ScriptedValue::ScriptedValue(const ScriptedValue& other) {
    ::VariantInit(&m_variant);
    Must(Copy(m_variant, other.m_variant));
}

ScriptedValue& ScriptedValue::operator=(const ScriptedValue& other) {
    if (this != &other) {
        Must(Copy(m_variant, other.m_variant));
    }
    return *this;
}

ScriptedValue::~ScriptedValue() {
    ::VariantClear(&m_variant);
}

HRESULT ScriptedValue::CopyTo(VARIANT& target) const {
    return Copy(target, m_variant);
}

ScriptedValue ScriptedValue::Of(const VARIANT& variant) {
    ScriptedValue value;
    Must(Copy(value.m_variant, variant));
    return value;
}

ScriptedValue ScriptedValue::Text(const std::wstring& text) {
    ScriptedValue value;
    value.m_variant.bstrVal = ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    value.m_variant.vt = VT_BSTR;
    return value;
}

ScriptedValue ScriptedValue::NullText() {
    ScriptedValue value;
    value.m_variant.bstrVal = nullptr;
    value.m_variant.vt = VT_BSTR;
    return value;
}

ScriptedValue ScriptedValue::Number(VARTYPE type, long long number) {
    ScriptedValue value;
    // What lies beside a narrow number in its union is not nothing: a reader that takes too much of it shows.
    std::memset(&value.m_variant.llVal, 0xA5, sizeof value.m_variant.llVal);
    switch (type) {
    case VT_I1:
    case VT_UI1:
        value.m_variant.bVal = static_cast<BYTE>(number);
        break;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        value.m_variant.iVal = static_cast<SHORT>(number);
        break;
    case VT_I8:
    case VT_UI8:
        value.m_variant.llVal = number;
        break;
    default:
        value.m_variant.lVal = static_cast<LONG>(number);
    }
    value.m_variant.vt = type;
    return value;
}

ScriptedValue ScriptedValue::Real(double number) {
    ScriptedValue value;
    value.m_variant.dblVal = number;
    value.m_variant.vt = VT_R8;
    return value;
}

ScriptedValue ScriptedValue::Texts(const std::vector<std::wstring>& texts, LONG lowerBound) {
    ScriptedValue value;
    value.m_variant.parray = NewVector(VT_BSTR, lowerBound, texts.size());
    value.m_variant.vt = VT_ARRAY | VT_BSTR;
    LONG place = lowerBound;
    for (const std::wstring& text : texts) {
        const ScriptedValue element = Text(text);
        Must(::SafeArrayPutElement(value.m_variant.parray, &place, element.m_variant.bstrVal));
        ++place;
    }
    return value;
}

ScriptedValue ScriptedValue::Numbers(VARTYPE type, const std::vector<long long>& numbers, LONG lowerBound) {
    ScriptedValue value;
    value.m_variant.parray = NewVector(type, lowerBound, numbers.size());
    value.m_variant.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    LONG place = lowerBound;
    for (const long long number : numbers) {
        ScriptedValue element = Number(type, number);
        Must(::SafeArrayPutElement(value.m_variant.parray, &place, &element.m_variant.llVal));
        ++place;
    }
    return value;
}

ScriptedValue ScriptedValue::Bytes(const std::vector<std::uint8_t>& bytes, LONG lowerBound) {
    return Numbers(VT_UI1, std::vector<long long>(bytes.begin(), bytes.end()), lowerBound);
}

ScriptedValue ScriptedValue::Square() {
    ScriptedValue value;
    SAFEARRAYBOUND bounds[] = {{4, 0}, {4, 0}};
    value.m_variant.parray = ::SafeArrayCreate(VT_UI1, 2, bounds);
    value.m_variant.vt = VT_ARRAY | VT_UI1;
    return value;
}

ScriptedValue ScriptedValue::NullArray(VARTYPE elementType) {
    ScriptedValue value;
    value.m_variant.parray = nullptr;
    value.m_variant.vt = static_cast<VARTYPE>(VT_ARRAY | elementType);
    return value;
}

std::wstring ScriptedValue::Described() const {
    if (m_variant.vt != VT_BSTR) {
        return L"type " + std::to_wstring(m_variant.vt);
    }
    return {m_variant.bstrVal, ::SysStringLen(m_variant.bstrVal)};
}

} // namespace test
