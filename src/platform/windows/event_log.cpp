#include "platform/event_log.h"

#include "platform/back_end.h"
#include "platform/windows/support/native.h"

namespace VESK_BACK_END {
namespace {

HANDLE Native(EventSource source) {
    return reinterpret_cast<HANDLE>(source);
}

} // namespace

EventSource RegisterEventSourceW(const char16_t* sourceName) {
    return EventSource{reinterpret_cast<std::uintptr_t>(::RegisterEventSourceW(nullptr, Wide(sourceName)))};
}

bool ReportEventW(EventSource source, std::uint16_t type, std::uint16_t category, std::uint32_t eventId,
                  const std::array<const char16_t*, 2>& insertionStrings) {
    std::array<const wchar_t*, 2> strings{Wide(insertionStrings[0]), Wide(insertionStrings[1])};
    return ::ReportEventW(Native(source), type, category, eventId, nullptr, static_cast<WORD>(strings.size()),
                          0, strings.data(), nullptr) != FALSE;
}

void DeregisterEventSource(EventSource source) {
    ::DeregisterEventSource(Native(source));
}

} // namespace VESK_BACK_END
