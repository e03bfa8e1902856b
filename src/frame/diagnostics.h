// The two diagnostic sinks: debug lines to a trace provider, warnings to the event log.
//
// Both are best-effort: a sink that fails is silent and never changes a result.
#pragma once

#include <atomic>
#include <concepts>
#include <cstdint>
#include <exception>
#include <string>

namespace sondrel {

/// The only event type that the library reports (EVENTLOG_WARNING_TYPE).
inline constexpr std::uint16_t WarningEvent = 2;

/// State of the trace provider. All zero at load.
struct TraceProviderState {
    /// Registration has been started, whatever its outcome. When several threads write their first lines at the
    /// same time, one of them registers the provider and the lines of the others may be lost.
    std::atomic<bool> TraceRegistered = false;
    /// Enabled level plus one; 0 while no consumer is attached. Atomic because ETW writes it on its own thread.
    /// A line written while a consumer attaches may be lost.
    std::atomic<std::uint32_t> TraceLevelPlus1 = 0;
    /// Stored as the consumer passes them; not used.
    std::atomic<std::uint64_t> AnyKeyword = 0;
    std::atomic<std::uint64_t> AllKeyword = 0;
    std::atomic<std::uint64_t> TraceRegHandle = 0;
};

extern TraceProviderState TraceProvider;

/// Writes one debug line. The conversion to UTF-16 takes place even with no consumer attached. When memory runs out
/// the line is missing.
void TraceLine(const char* text) noexcept;

/// Writes the string that `make` returns, up to its first zero character. A line that is put together is made here, so
/// that running out of memory for it is no error of the caller's.
template <std::invocable Make>
void TraceLine(Make make) noexcept {
    try {
        const std::string text = make();
        TraceLine(text.c_str());
    } catch (const std::exception&) {
        return;
    }
}

/// Writes one debug line that is UTF-16 already. A null pointer is written as the empty string.
void TraceWide(const char16_t* text);

/// Registers the provider; TraceWide does so once per process. After a failed registration no line is written.
void TraceProviderRegister();

/// Reports one event of the source "VESKTessaly", which is opened and closed for each message.
void ReportWarningEvent(const char16_t* message, std::uint16_t type);

} // namespace sondrel
