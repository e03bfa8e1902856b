#include "causes/reading_state.h"

#include <array>
#include <cstddef>

namespace tool {
namespace {

constexpr auto ReadingStateTexts = std::to_array<std::string_view>(
    {"ok", "absent", "failed", "no session", "in use", "denied", "not ready", "timed out", "stale"});
static_assert(ReadingStateTexts.size() == static_cast<std::size_t>(ReadingState::Stale) + 1);

} // namespace

std::string_view TextOf(ReadingState state) {
    return ReadingStateTexts[static_cast<std::size_t>(state)];
}

std::string TextOf(const Cause& cause) {
    if (!cause.call) {
        return cause.rule;
    }
    const DecidingCall& call = *cause.call;
    std::string text = call.operation;
    text.append(call.subject.empty() ? "" : " ").append(call.subject).append(1, ' ').append(call.outcome);
    return call.words.empty() ? text : text.append(" (").append(call.words).append(1, ')');
}

std::string TextWithRemedy(const Cause& cause) {
    const std::string text = TextOf(cause);
    return cause.remedy.empty() ? text : text + ": " + cause.remedy;
}

} // namespace tool
