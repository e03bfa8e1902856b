#include "platform/event_log.h"

#include "machine/machine.h"
#include "machine/services/last_error.h"
#include "platform/back_end.h"

#include <utility>

namespace VESK_BACK_END {
namespace {

struct OpenEventSource {
    std::u16string name;
};

} // namespace

EventSource RegisterEventSourceW(const char16_t* sourceName) {
    const auto machine = machine::Current();
    return machine->handles.Open<EventSource>(OpenEventSource{sourceName});
}

bool ReportEventW(EventSource source, std::uint16_t type, std::uint16_t, std::uint32_t,
                  const std::array<const char16_t*, 2>& insertionStrings) {
    const auto machine = machine::Current();
    const auto* const opened = machine->handles.Find<OpenEventSource>(source);
    if (opened == nullptr) {
        return machine::Succeed(error::InvalidHandle);
    }
    machine::LoggedEvent event{type, opened->name, {insertionStrings[0], insertionStrings[1]}};
    if (machine->onLoggedEvent) {
        machine->onLoggedEvent(event);
    }
    machine->eventLog.push_back(std::move(event));
    return true;
}

void DeregisterEventSource(EventSource source) {
    machine::Current()->handles.Close(source);
}

} // namespace VESK_BACK_END
