#include "platform/event_log.h"

#include "observer/observe.h"

namespace platform {

using namespace observer::decorators;

EventSource RegisterEventSourceW(const char16_t* sourceName) {
    return ObserveOpening<Operation::RegisterEventSourceW>(OpensResult{HandleKind::EventSource, sourceName},
                                                           back_end::RegisterEventSourceW,
                                                           In("name", sourceName));
}

bool ReportEventW(EventSource source, std::uint16_t type, std::uint16_t category, std::uint32_t eventId,
                  const std::array<const char16_t*, 2>& insertionStrings) {
    return Observe<Operation::ReportEventW>(back_end::ReportEventW, In("source", source), In("type", type),
                                            In("category", category), In("id", eventId),
                                            In("strings", insertionStrings));
}

void DeregisterEventSource(EventSource source) {
    Observe<Operation::DeregisterEventSource>(back_end::DeregisterEventSource, Closes("source", source));
}

} // namespace platform
