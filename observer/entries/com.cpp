#include "platform/com.h"

#include "observer/observe.h"

namespace platform {

using namespace observer::decorators;

namespace {

/// An apartment is what its thread has entered: it has no number.
constexpr std::uintptr_t ThisThread = 0;

/// Left as often as it was entered.
struct EntersApartment {
    void operator()(observer::Call& call, HResult) const {
        call.Opened(HandleKind::Apartment, ThisThread, {});
    }
};

struct LeavesApartment {
    void operator()(observer::Call& call) const { call.Closed(HandleKind::Apartment, ThisThread); }
};

} // namespace

HResult CoInitializeEx(std::uint32_t apartmentKind) {
    return ObserveOpening<Operation::CoInitializeEx>(EntersApartment{}, back_end::CoInitializeEx,
                                                     In("kind", apartmentKind));
}

void CoUninitialize() {
    ObserveOpening<Operation::CoUninitialize>(LeavesApartment{}, back_end::CoUninitialize);
}

int StringFromGUID2(const Guid& guid, std::span<char16_t> text) {
    return Observe<Operation::StringFromGUID2>(back_end::StringFromGUID2, In("guid", guid),
                                               OutTextSpan("text", text));
}

HResult CoCreateInstance(const Guid& classId, std::uint32_t classContext, const Guid& interfaceId,
                         Unknown& made) {
    return Observe<Operation::CoCreateInstance>(back_end::CoCreateInstance, In("class", classId),
                                                In("context", classContext), In("interface", interfaceId),
                                                Opens("made", made, observer::KindOf(interfaceId)));
}

void Release(Unknown held) {
    Observe<Operation::Release>(back_end::Release, Closes("object", held));
}

} // namespace platform
