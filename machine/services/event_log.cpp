#include "platform/event_log.h"

#include "machine/machine.h"
#include "machine/services/trace_sink.h"
#include "machine/text/wide_text.h"
#include "observer/gate.h"
#include "platform/back_end.h"

namespace VESK_BACK_END {

using machine::Call;
using machine::Current;
using machine::Operation;

EventSource RegisterEventSourceW(const char16_t* sourceName) {
    Call call(Operation::RegisterEventSourceW);
    call.Note([&] { return machine::Utf8FromWide(sourceName); });
    if (call.Refused()) {
        machine::SetLastError(call.RefusalCode());
        return call.Answered(EventSource::None);
    }
    const std::uintptr_t number = Current().gate.Opened("event source " + machine::Utf8FromWide(sourceName));
    Current().eventSources[number] = sourceName;
    return call.Answered(EventSource{number});
}

bool ReportEventW(EventSource source, std::uint16_t type, std::uint16_t, std::uint32_t,
                  const std::array<const char16_t*, 2>& insertionStrings) {
    Call call(Operation::ReportEventW);
    call.Note([&] { return '"' + machine::Utf8FromWide(insertionStrings[1]) + '"'; });
    const auto opened = Current().eventSources.find(static_cast<std::uintptr_t>(source));
    if (call.Refused() || opened == Current().eventSources.end()) {
        machine::SetLastError(opened == Current().eventSources.end() ? error::InvalidHandle
                                                                     : call.RefusalCode());
        return call.Answered(false);
    }
    machine::LoggedEvent event{type, opened->second, {insertionStrings[0], insertionStrings[1]}};
    if (Current().onLoggedEvent) {
        Current().onLoggedEvent(event);
    }
    Current().eventLog.push_back(std::move(event));
    return call.Answered(true);
}

void DeregisterEventSource(EventSource source) {
    Call call(Operation::DeregisterEventSource);
    const auto number = static_cast<std::uintptr_t>(source);
    Current().gate.Closed(number);
    Current().eventSources.erase(number);
}

} // namespace VESK_BACK_END
