#include "platform/com.h"

#include "platform/windows/wide.h"

#include <objbase.h>

namespace platform {

HResult CoInitializeEx(std::uint32_t apartmentKind) {
    return ::CoInitializeEx(nullptr, apartmentKind);
}

void CoUninitialize() {
    ::CoUninitialize();
}

int StringFromGUID2(const Guid& guid, std::span<char16_t> text) {
    static_assert(sizeof(Guid) == sizeof(GUID));
    return ::StringFromGUID2(reinterpret_cast<const GUID&>(guid), Wide(text.data()),
                             static_cast<int>(text.size()));
}

} // namespace platform
