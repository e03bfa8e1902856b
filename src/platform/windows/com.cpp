#include "platform/com.h"

#include <windows.h>

#include <objbase.h>

namespace platform {

HResult CoInitializeEx(std::uint32_t apartmentKind) {
    return ::CoInitializeEx(nullptr, apartmentKind);
}

void CoUninitialize() {
    ::CoUninitialize();
}

} // namespace platform
