// VARIANTs as plain values.
#pragma once

#include "platform/back_end.h"
#include "platform/wmi.h"

#include <windows.h>

#include <oleauto.h>

namespace VESK_BACK_END {

/// A VARIANT that is initially empty and is cleared at the end.
class OwnedVariant {
public:
    OwnedVariant() = default;
    OwnedVariant(const OwnedVariant&) = delete;
    OwnedVariant& operator=(const OwnedVariant&) = delete;
    ~OwnedVariant() { ::VariantClear(&m_variant); }

    [[nodiscard]] VARIANT& Raw() { return m_variant; }

private:
    VARIANT m_variant{}; // VT_EMPTY, and every bit of its value 0
};

WmiValue ValueOf(const VARIANT& variant);

VariantWord WordOf(const VARIANT& variant);

} // namespace VESK_BACK_END
