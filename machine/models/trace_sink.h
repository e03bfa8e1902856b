// ETW of the simulated machine.
#pragma once

#include "platform/tracing.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace machine {

/// One event as it reaches a consumer.
struct TraceEvent {
    platform::EventDescriptor descriptor{};
    std::string provider;
    std::string event;
    std::string field;
    std::u16string text;
};

/// ETW: providers that registered, and at most one consumer. Lives as long as the process, as registrations
/// do.
class TraceSink {
public:
    std::uint64_t Register(const platform::Guid& provider, platform::TraceEnableCallback callback,
                           void* context);
    void Write(std::uint64_t registration, const platform::EventDescriptor& descriptor,
               const std::array<platform::EventData, 3>& data);

    /// Forgets every provider, as the end of its process does.
    void Forget() { m_registrations.clear(); }

    /// A consumer enables every provider at a level; 0 asks for every level.
    void Attach(std::uint8_t level) { SetLevel(level); }

    void Detach() { SetLevel(std::nullopt); }

    void OnEvent(std::function<void(const TraceEvent&)> listener) { m_listener = std::move(listener); }

    /// What was written since the last call.
    std::vector<TraceEvent> Take();

private:
    struct Registration {
        platform::Guid provider;
        platform::TraceEnableCallback callback;
        void* context;
    };

    /// Calls a provider back: whether it is enabled, and at which level.
    void Inform(const Registration& registration) const;
    void SetLevel(std::optional<std::uint8_t> level);

    std::vector<Registration> m_registrations;
    std::optional<std::uint8_t> m_level;
    std::vector<TraceEvent> m_events;
    std::function<void(const TraceEvent&)> m_listener;
};

/// A provider registers once for each process, and so outlives a machine that is replaced.
TraceSink& Traces();

} // namespace machine
