// The kernel's handles as the operating system's headers have them.
#pragma once

#include "platform/back_end.h"
#include "platform/types.h"

#include <windows.h>

namespace VESK_BACK_END {

inline HANDLE Native(Handle handle) {
    return reinterpret_cast<HANDLE>(handle);
}

} // namespace VESK_BACK_END
