// Arrays as COM passes them.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <algorithm>
#include <new>

namespace test {

/// A VARIANT of a new array; the caller clears it. `convert` makes an `Element` of each value.
template <class Element, class Values, class Convert>
VARIANT NewArray(VARTYPE type, LONG lowerBound, const Values& values, Convert convert) {
    SAFEARRAY* const array = ::SafeArrayCreateVector(type, lowerBound, static_cast<ULONG>(std::size(values)));
    Element* elements = nullptr;
    if (array == nullptr || FAILED(::SafeArrayAccessData(array, reinterpret_cast<void**>(&elements)))) {
        throw std::bad_alloc();
    }
    std::ranges::transform(values, elements, convert);
    ::SafeArrayUnaccessData(array);
    VARIANT variant{};
    variant.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    variant.parray = array;
    return variant;
}

} // namespace test
