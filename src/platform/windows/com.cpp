#include "platform/com.h"

#include "platform/back_end.h"
#include "platform/windows/support/native.h"

#include <objbase.h>

#include <bit>

namespace VESK_BACK_END {

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

HResult CoCreateInstance(const Guid& classId, std::uint32_t classContext, const Guid& interfaceId,
                         Unknown& made) {
    void* object = nullptr;
    const HResult status = ::CoCreateInstance(std::bit_cast<CLSID>(classId), nullptr, classContext,
                                              std::bit_cast<IID>(interfaceId), &object);
    if (SUCCEEDED(status)) {
        made = Unknown{reinterpret_cast<std::uintptr_t>(object)};
    }
    return status;
}

void Release(Unknown held) {
    reinterpret_cast<IUnknown*>(held)->Release();
}

} // namespace VESK_BACK_END
