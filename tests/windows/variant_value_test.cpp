// VARIANTs of every type that WMI may send, and of some that it should not.
#include "safe_array.h"

#include "platform/windows/support/variant_value.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <vector>

namespace {

using platform::ValueOf;
using platform::WmiValue;
using Numbers = std::vector<std::int32_t>;
using Texts = std::vector<std::u16string>;

VARIANT Number(VARTYPE type, long long number, std::size_t size) {
    VARIANT variant{};
    variant.vt = type;
    std::memset(&variant.llVal, 0xA5, sizeof variant.llVal); // the rest of a narrow number
    std::memcpy(&variant.llVal, &number, size);
    return variant;
}

template <class Element>
VARIANT Array(VARTYPE type, const std::vector<Element>& values, LONG lowerBound = 0) {
    return test::NewArray<Element>(type, lowerBound, values, std::identity());
}

/// The value of a VARIANT that is cleared afterwards.
WmiValue Taken(VARIANT variant) {
    WmiValue value = ValueOf(variant);
    ::VariantClear(&variant);
    return value;
}

TEST(VariantValueTest, NumbersOfUpTo32BitsAreNumbersAndLongerOnesTexts) {
    EXPECT_EQ(ValueOf(Number(VT_UI1, 200, 1)), WmiValue(200));
    EXPECT_EQ(ValueOf(Number(VT_I1, -3, 1)), WmiValue(-3));
    EXPECT_EQ(ValueOf(Number(VT_I2, -300, 2)), WmiValue(-300));
    EXPECT_EQ(ValueOf(Number(VT_UI2, 65535, 2)), WmiValue(65535));
    EXPECT_EQ(ValueOf(Number(VT_BOOL, VARIANT_TRUE, 2)), WmiValue(-1));
    for (const VARTYPE type : {VT_I4, VT_UI4, VT_INT, VT_UINT}) {
        EXPECT_EQ(ValueOf(Number(type, 0x80000000, 4)), WmiValue(INT32_MIN));
    }
    EXPECT_EQ(ValueOf(Number(VT_I8, -1, 8)), WmiValue(u"-1"));
    EXPECT_EQ(ValueOf(Number(VT_UI8, -1, 8)), WmiValue(u"18446744073709551615"));
    for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_R8, VT_DATE, VT_ERROR}) {
        EXPECT_EQ(ValueOf(Number(type, 70, 8)), WmiValue()) << type;
    }
}

TEST(VariantValueTest, TextsKeepTheirZerosAndANullOneIsEmpty) {
    VARIANT text{};
    text.vt = VT_BSTR;
    EXPECT_EQ(ValueOf(text), WmiValue(u""));
    text.bstrVal = ::SysAllocStringLen(L"ab\0\xD83D", 4);
    EXPECT_EQ(Taken(text), WmiValue(std::u16string(u"ab\0\xD83D", 4)));
}

TEST(VariantValueTest, ArraysAreReadFromTheirLowerBound) {
    EXPECT_EQ(Taken(Array<LONG>(VT_I4, {10, -3}, 5)), WmiValue(Numbers{10, -3}));
    EXPECT_EQ(Taken(Array<ULONG>(VT_UI4, {0xFFFFFFFF}, -2)), WmiValue(Numbers{-1}));
    EXPECT_EQ(Taken(Array<SHORT>(VT_I2, {-1, 2})), WmiValue(Numbers{-1, 2}));
    EXPECT_EQ(Taken(Array<USHORT>(VT_UI2, {0x20AC, 0xFFFF})), WmiValue(Numbers{0x20AC, 0xFFFF}));
    EXPECT_EQ(Taken(Array<signed char>(VT_I1, {-1})), WmiValue(Numbers{-1}));
    EXPECT_EQ(Taken(Array<BYTE>(VT_UI1, {0xFF, 1}, 100)),
              WmiValue(platform::WmiBytes{100, {std::byte{0xFF}, std::byte{1}}}));
    EXPECT_EQ(Taken(Array<LONGLONG>(VT_I8, {-1})), WmiValue(Texts{u"-1"}));
    EXPECT_EQ(Taken(Array<LONG>(VT_I4, {})), WmiValue(Numbers{}));
    const BSTR first = ::SysAllocString(L"x");
    EXPECT_EQ(Taken(Array<BSTR>(VT_BSTR, {first, nullptr}, 3)), WmiValue(Texts{u"x", u""}));
}

TEST(VariantValueTest, AWordIsWhateverIsInTheFirst32Bits) {
    EXPECT_EQ(platform::WordOf(Number(VT_I4, -7, 4)).bits, -7);
    EXPECT_EQ(platform::WordOf(Number(VT_UI1, 7, 1)).bits, static_cast<std::int32_t>(0xA5A5A507));
    EXPECT_EQ(platform::WordOf(Number(VT_I8, 0x100000002, 8)).bits, 2);
    EXPECT_EQ(platform::WordOf(Number(VT_R8, 0x1234567890, 8)).bits, 0x34567890);
    EXPECT_EQ(platform::WordOf(Number(VT_NULL, 9, 4)).bits, 9);
    EXPECT_EQ(platform::WordOf(Number(VT_UI1, 7, 1)).variantType, VT_UI1);
    VARIANT text{};
    text.vt = VT_BSTR;
    text.bstrVal = reinterpret_cast<BSTR>(0x1122334455667788);
    EXPECT_EQ(platform::WordOf(text).bits, 0x55667788);
}

TEST(VariantValueTest, WhatIsNoArrayOfOneDimensionIsNothing) {
    VARIANT array{};
    array.vt = VT_ARRAY | VT_I4;
    EXPECT_EQ(ValueOf(array), WmiValue()); // no array
    SAFEARRAYBOUND bounds[] = {{4, 0}, {4, 0}};
    array.parray = ::SafeArrayCreate(VT_I4, 2, bounds);
    EXPECT_EQ(Taken(array), WmiValue());
    array = Array<LONG>(VT_I4, {1, 2});
    array.vt = VT_ARRAY | VT_UI1; // not the size of what is there
    EXPECT_EQ(ValueOf(array), WmiValue(platform::WmiBytes{}));
    array.vt = VT_ARRAY | VT_BYREF | VT_I4;
    EXPECT_EQ(ValueOf(array), WmiValue());
    array.vt = VT_ARRAY | VT_I4;
    EXPECT_EQ(Taken(array), WmiValue(Numbers{1, 2}));
    EXPECT_EQ(Taken(Array<double>(VT_R8, {1})), WmiValue());
}

} // namespace
