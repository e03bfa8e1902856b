// A VARIANT as a test writes it down.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstdint>
#include <string>
#include <vector>

namespace test {

/// Owns a VARIANT; a fresh one is VT_NULL, a property without a value.
class ScriptedValue {
public:
    ScriptedValue();
    ScriptedValue(const ScriptedValue& other);
    ScriptedValue& operator=(const ScriptedValue& other);
    ~ScriptedValue();

    /// VT_BSTR; zero characters inside are kept.
    static ScriptedValue Text(const std::wstring& text);
    /// VT_BSTR with a null pointer.
    static ScriptedValue NullText();
    /// One of the whole number types and VT_BOOL.
    static ScriptedValue Number(VARTYPE type, long long number);
    static ScriptedValue Real(double number);
    static ScriptedValue Texts(const std::vector<std::wstring>& texts, LONG lowerBound = 0);
    static ScriptedValue Numbers(VARTYPE type, const std::vector<long long>& numbers, LONG lowerBound = 0);
    static ScriptedValue Bytes(const std::vector<std::uint8_t>& bytes, LONG lowerBound = 0);
    /// An array of bytes with two dimensions.
    static ScriptedValue Square();
    /// An array type with no array behind it.
    static ScriptedValue NullArray(VARTYPE elementType);

    /// VariantCopy into `target`, which is cleared first.
    HRESULT CopyTo(VARIANT& target) const;

    /// Takes a copy of somebody else's.
    static ScriptedValue Of(const VARIANT& variant);

    /// For comparing what was put: the text of a VT_BSTR, or "type N".
    [[nodiscard]] std::wstring Described() const;

private:
    VARIANT m_variant;
};

} // namespace test
