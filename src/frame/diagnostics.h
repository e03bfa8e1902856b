// The two diagnostic sinks: debug lines to a trace provider, warnings to the event log.
//
// Both are best-effort: a sink that fails is silent and never changes a result.
#pragma once

#include <atomic>
#include <cstdint>
#include <exception>
#include <string>

namespace sondrel {

/// The only event type the library reports (EVENTLOG_WARNING_TYPE).
inline constexpr std::uint16_t WarningEvent = 2;

/// What the trace provider keeps. All zero at load.
struct TraceProviderState {
    /// The first line has gone about registering the provider, whatever came or comes of it. Of threads that
    /// begin at once, one registers it, and the others' first lines may be lost.
    std::atomic<bool> TraceRegistered = false;
    /// Enabled level plus one; 0 while no consumer is attached. ETW's thread writes it while ours reads it,
    /// so it is read and written whole; a line around the moment of attaching may be lost or written.
    std::atomic<std::uint32_t> TraceLevelPlus1 = 0;
    /// As the consumer gave them; no decision uses them.
    std::atomic<std::uint64_t> AnyKeyword = 0;
    std::atomic<std::uint64_t> AllKeyword = 0;
    std::atomic<std::uint64_t> TraceRegHandle = 0;
};

extern TraceProviderState TraceProvider;

/// Writes one debug line. The text is cut at its first zero character. The conversion to wide text takes
/// place even with no consumer attached. Where there is no memory for it the line is missing.
void TraceLine(std::string text) noexcept;
void TraceLine(const char* text) noexcept;

/// The same for a line whose making may run out of memory too, where an answer must not depend on it.
template <class Make>
void TraceMade(Make make) noexcept {
    try {
        TraceLine(make());
    } catch (const std::exception&) {
        return; // as silent as any other failure of a sink
    }
}

/// Writes one debug line that is wide already. A null text gives an event with the empty string.
void TraceWide(const char16_t* text);

/// Registers the provider; TraceWide does so once per process. A failed registration leaves it silent for
/// good.
void TraceProviderRegister();

/// Reports one event under the source "VESKTessaly". The source is opened and closed for each message.
void ReportWarningEvent(const char16_t* message, std::uint16_t type);

} // namespace sondrel
