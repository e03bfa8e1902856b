// The state of a reading, and its cause.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tool {

enum class ReadingState : std::uint8_t {
    Ok,
    Absent,    // the machine has no such thing
    Failed,    // the reading was tried and failed
    NoSession, // it needs the driver session, which is not open
    InUse,     // another process holds it
    Denied,    // this user or process may not
    NotReady,  // there is no measurement yet
    TimedOut,
    Stale // read earlier in this process, and not again
};

std::string_view TextOf(ReadingState state);

/// Whether the reading was prevented. An absent or stale one was not, nor one that is not ready.
constexpr bool IsFailure(ReadingState state) {
    return state == ReadingState::Failed || state == ReadingState::NoSession ||
           state == ReadingState::InUse || state == ReadingState::Denied || state == ReadingState::TimedOut;
}

/// The boundary call that decided the state, in words.
struct DecidingCall {
    std::uint64_t number = 0; // as the observer counts
    std::string operation;
    /// What it was called on: "ROOT\WMI", "EcFwRev in HKLM\SOFTWARE\Vesk".
    std::string subject;
    /// "returned 0x80041003", "returned no row".
    std::string outcome;
    std::optional<std::uint32_t> code;
    /// Of the code: "access denied".
    std::string words;
};

struct Cause {
    /// Nothing where a rule decided.
    std::optional<DecidingCall> call;
    /// "the session is not open"; empty where a call decided.
    std::string rule;
    /// What to do about it; empty where nothing is known.
    std::string remedy;
};

/// "ConnectServer ROOT\WMI returned 0x80041003 (access denied)" or the rule.
std::string TextOf(const Cause& cause);

/// The same with the remedy: "...: run elevated".
std::string TextWithRemedy(const Cause& cause);

} // namespace tool
