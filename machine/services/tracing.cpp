#include "platform/tracing.h"

#include "machine/machine.h"
#include "machine/models/trace_sink.h"
#include "machine/services/last_error.h"
#include "platform/back_end.h"

namespace VESK_BACK_END {

SystemError EventRegister(const Guid& provider, TraceEnableCallback callback, void* context,
                          std::uint64_t& registration) {
    registration = machine::Current()->Traces().Register(provider, callback, context);
    return error::Success;
}

SystemError EventSetInformation(std::uint64_t, std::uint32_t, std::span<const std::byte>) {
    return error::Success;
}

SystemError EventWriteTransfer(std::uint64_t registration, const EventDescriptor& descriptor,
                               const std::array<EventData, 3>& data) {
    const auto machine = machine::Current();
    machine->Traces().Write(registration, descriptor, data);
    // Nothing says that a debug line leaves the thread's last error alone: here it does not.
    machine::SetLastError(error::MoreData);
    return error::Success;
}

} // namespace VESK_BACK_END
