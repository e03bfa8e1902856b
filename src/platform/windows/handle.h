// The kernel's handles as the operating system's headers have them.
#pragma once

#include "platform/device_io.h"

#include <windows.h>

namespace platform {

inline HANDLE Native(Handle handle) {
    return reinterpret_cast<HANDLE>(handle);
}

} // namespace platform
