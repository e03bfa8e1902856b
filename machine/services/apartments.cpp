#include "machine/services/apartments.h"

#include "observer/gate.h"
#include "platform/back_end.h"
#include "platform/com.h"

#include <string>

namespace machine {

ThreadApartment& CurrentApartment() {
    thread_local ThreadApartment Apartment;
    return Apartment;
}

} // namespace machine

namespace VESK_BACK_END {

using machine::Call;
using machine::Operation;

HResult CoInitializeEx(std::uint32_t apartmentKind) {
    Call call(Operation::CoInitializeEx);
    call.Note(
        [&] { return apartmentKind == apartment::Multithreaded ? "multithreaded" : "single-threaded"; });
    machine::ThreadApartment& here = machine::CurrentApartment();
    if (call.Refused()) {
        return call.Answered(static_cast<HResult>(call.RefusalCode()));
    }
    if (here.entered != 0 && here.kind != apartmentKind) {
        return call.Answered(hresult::ChangedMode);
    }
    here.kind = apartmentKind;
    return call.Answered(here.entered++ == 0 ? hresult::Ok : hresult::False);
}

void CoUninitialize() {
    const Call call(Operation::CoUninitialize);
    if (machine::ThreadApartment& here = machine::CurrentApartment(); here.entered != 0) {
        --here.entered;
    }
}

} // namespace VESK_BACK_END
