// Interface pointers on their way out of a call.
#pragma once

#include "platform/back_end.h"
#include "platform/types.h"

#include <windows.h>

#include <cstdint>

namespace VESK_BACK_END {

/// Hands an interface pointer over, if the operation gave one.
template <class Interface>
HResult Made(HRESULT status, void* object, Interface& made) {
    if (SUCCEEDED(status)) {
        made = Interface{reinterpret_cast<std::uintptr_t>(object)};
    }
    return status;
}

} // namespace VESK_BACK_END
