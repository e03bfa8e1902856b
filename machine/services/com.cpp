#include "platform/com.h"

#include "machine/machine.h"
#include "machine/models/com_objects.h"
#include "platform/back_end.h"

#include <algorithm>
#include <cstdio>

namespace VESK_BACK_END {

HResult CoInitializeEx(std::uint32_t apartmentKind) {
    machine::ThreadApartment& here = machine::CurrentApartment();
    if (here.entered != 0 && here.kind != apartmentKind) {
        return hresult::ChangedMode;
    }
    here.kind = apartmentKind;
    return here.entered++ == 0 ? hresult::Ok : hresult::False;
}

void CoUninitialize() {
    if (machine::ThreadApartment& here = machine::CurrentApartment(); here.entered != 0) {
        --here.entered;
    }
}

int StringFromGUID2(const Guid& guid, std::span<char16_t> text) {
    char digits[39];
    if (text.size() < sizeof digits) {
        return 0;
    }
    std::snprintf(digits, sizeof digits, "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}",
                  static_cast<unsigned>(guid.data1), guid.data2, guid.data3, guid.data4[0], guid.data4[1],
                  guid.data4[2], guid.data4[3], guid.data4[4], guid.data4[5], guid.data4[6], guid.data4[7]);
    std::ranges::copy(digits, text.begin());
    return static_cast<int>(sizeof digits);
}

HResult CoCreateInstance(const Guid& classId, std::uint32_t classContext, const Guid& interfaceId,
                         Unknown& made) {
    const auto machine = machine::Current();
    if (machine::CurrentApartment().entered == 0) {
        return hresult::NotInitialised;
    }
    const machine::ComClass* const row = machine::FindComClass(classId);
    if (row == nullptr || (classContext & class_context::InprocServer) == 0) {
        return hresult::ClassNotRegistered;
    }
    if (row->interfaceId != interfaceId) {
        return hresult::NoInterface;
    }
    made = row->create(machine->handles);
    return hresult::Ok;
}

void Release(Unknown held) {
    machine::Current()->handles.Close(held);
}

} // namespace VESK_BACK_END
