// Between the library's UTF-16 and the platform's wchar_t, which is the same 16 bits under another name.
#pragma once

#include "platform/back_end.h"

#include <windows.h>

static_assert(sizeof(wchar_t) == sizeof(char16_t));

namespace VESK_BACK_END {

inline const wchar_t* Wide(const char16_t* text) {
    return reinterpret_cast<const wchar_t*>(text);
}

inline wchar_t* Wide(char16_t* text) {
    return reinterpret_cast<wchar_t*>(text);
}

} // namespace VESK_BACK_END
