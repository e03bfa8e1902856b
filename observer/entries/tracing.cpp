#include "platform/tracing.h"

#include "observer/observe.h"

namespace platform {

using namespace observer::decorators;

namespace {

/// The library's callback: a process registers its provider once, so that one place is enough.
struct Consumer {
    TraceEnableCallback callback = nullptr;
    void* context = nullptr;
};

Consumer TheConsumer;

/// Comes from within EventRegister or on any thread, and goes on in the library.
void OnEnable(void*, std::uint32_t controlCode, std::uint8_t level, std::uint64_t matchAnyKeyword,
              std::uint64_t matchAllKeyword) {
    const observer::AboveBoundary library;
    TheConsumer.callback(TheConsumer.context, controlCode, level, matchAnyKeyword, matchAllKeyword);
}

} // namespace

SystemError EventRegister(const Guid& provider, TraceEnableCallback callback, void* context,
                          std::uint64_t& registration) {
    TheConsumer = {callback, context};
    const auto subscribe = [](const Guid& id, std::uint64_t& handle) {
        return back_end::EventRegister(id, OnEnable, nullptr, handle);
    };
    return Observe<Operation::EventRegister>(
        subscribe, In("provider", provider),
        OutHandle("registration", HandleKind::TraceProvider, registration));
}

SystemError EventSetInformation(std::uint64_t registration, std::uint32_t informationClass,
                                std::span<const std::byte> information) {
    return Observe<Operation::EventSetInformation>(
        back_end::EventSetInformation, InHandle("registration", HandleKind::TraceProvider, registration),
        In("class", informationClass), In("information", information));
}

SystemError EventWriteTransfer(std::uint64_t registration, const EventDescriptor& descriptor,
                               const std::array<EventData, 3>& data) {
    return Observe<Operation::EventWriteTransfer>(
        back_end::EventWriteTransfer, InHandle("registration", HandleKind::TraceProvider, registration),
        In("descriptor", descriptor), In("text", data));
}

} // namespace platform
