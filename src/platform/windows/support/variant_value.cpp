#include "platform/windows/support/variant_value.h"

#include "platform/back_end.h"
#include "platform/windows/support/bstr.h"

#include <charconv>
#include <concepts>
#include <cstring>
#include <span>

namespace VESK_BACK_END {
namespace {

/// The elements of a one-dimensional array in order, with any lower bound. Locks the array meanwhile.
class ArrayElements {
public:
    explicit ArrayElements(SAFEARRAY* array) : m_array(array) {
        LONG high = -1;
        if (array == nullptr || ::SafeArrayGetDim(array) != 1 ||
            FAILED(::SafeArrayGetLBound(array, 1, &m_low)) || FAILED(::SafeArrayGetUBound(array, 1, &high)) ||
            FAILED(::SafeArrayAccessData(array, &m_data))) {
            m_array = nullptr;
            return;
        }
        m_count = static_cast<std::size_t>(static_cast<std::int64_t>(high) - m_low + 1);
    }

    ArrayElements(const ArrayElements&) = delete;
    ArrayElements& operator=(const ArrayElements&) = delete;

    ~ArrayElements() {
        if (m_array != nullptr) {
            ::SafeArrayUnaccessData(m_array);
        }
    }

    [[nodiscard]] bool Usable() const { return m_array != nullptr; }
    [[nodiscard]] LONG LowerBound() const { return m_low; }

    template <class Element>
    [[nodiscard]] std::span<const Element> As() const {
        // Nothing if the size of the elements does not agree with the type of the array.
        const bool fits = ::SafeArrayGetElemsize(m_array) == sizeof(Element);
        return {static_cast<const Element*>(m_data), fits ? m_count : 0};
    }

private:
    SAFEARRAY* m_array;
    void* m_data = nullptr;
    LONG m_low = 0;
    std::size_t m_count = 0;
};

std::u16string StringOf(std::integral auto number) {
    char digits[24];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
    return {std::begin(digits), end};
}

std::u16string StringOf(BSTR text) {
    return std::u16string(ViewOf(text));
}

template <class Element>
WmiValue Numbers(const ArrayElements& elements) {
    std::vector<std::int32_t> numbers;
    for (const Element element : elements.As<Element>()) {
        numbers.push_back(static_cast<std::int32_t>(element));
    }
    return numbers;
}

template <class Element>
WmiValue Strings(const ArrayElements& elements) {
    std::vector<std::u16string> strings;
    for (const Element element : elements.As<Element>()) {
        strings.push_back(StringOf(element));
    }
    return strings;
}

WmiValue Bytes(const ArrayElements& elements) {
    const auto bytes = std::as_bytes(elements.As<BYTE>());
    return WmiBytes{elements.LowerBound(), {bytes.begin(), bytes.end()}};
}

WmiValue ArrayValueOf(VARTYPE elementType, SAFEARRAY* array) {
    const ArrayElements elements(array);
    if (!elements.Usable()) {
        return {};
    }
    switch (elementType) {
    case VT_UI1:
        return Bytes(elements);
    case VT_I1:
        return Numbers<signed char>(elements);
    case VT_I2:
    case VT_BOOL:
        return Numbers<SHORT>(elements);
    case VT_UI2:
        return Numbers<USHORT>(elements);
    case VT_I4:
    case VT_INT:
    case VT_UI4:
    case VT_UINT:
        return Numbers<LONG>(elements);
    case VT_I8:
        return Strings<LONGLONG>(elements);
    case VT_UI8:
        return Strings<ULONGLONG>(elements);
    case VT_BSTR:
        return Strings<BSTR>(elements);
    default:
        return {};
    }
}

WmiValue Number(std::integral auto number) {
    return static_cast<std::int32_t>(number);
}

} // namespace

VariantWord WordOf(const VARIANT& variant) {
    return {variant.lVal, variant.vt};
}

WmiValue ValueOf(const VARIANT& variant) {
    if ((variant.vt & ~VT_TYPEMASK) == VT_ARRAY) {
        return ArrayValueOf(variant.vt & VT_TYPEMASK, variant.parray);
    }
    switch (variant.vt) {
    case VT_I1:
        return Number(static_cast<signed char>(variant.cVal));
    case VT_UI1:
        return Number(variant.bVal);
    case VT_I2:
    case VT_BOOL:
        return Number(variant.iVal);
    case VT_UI2:
        return Number(variant.uiVal);
    case VT_I4:
    case VT_INT:
    case VT_UI4:
    case VT_UINT:
        return Number(variant.lVal);
    case VT_I8:
        return StringOf(variant.llVal);
    case VT_UI8:
        return StringOf(variant.ullVal);
    case VT_BSTR:
        return StringOf(variant.bstrVal);
    default:
        return {};
    }
}

} // namespace VESK_BACK_END
