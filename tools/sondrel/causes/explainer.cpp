#include "causes/explainer.h"

#include "causes/deciding_call.h"

#include <utility>

namespace tool {
namespace {

using exports::SpecialValue;
using exports::State;

Status StatusFor(ReadingState state, Status described) {
    switch (state) {
    case ReadingState::Ok:
    case ReadingState::Stale:
        return described == Status::Partly ? Status::Partly : Status::Ok;
    case ReadingState::Absent:
    case ReadingState::NotReady:
        return described == Status::NotRead ? Status::NotRead : Status::Absent;
    default:
        return described == Status::Untouched || described == Status::Faulty ? described : Status::Failed;
    }
}

ReadingState StateFor(State state) {
    switch (state) {
    case State::Ok:
        return ReadingState::Ok;
    case State::Failed:
        return ReadingState::Failed;
    case State::NoSession:
        return ReadingState::NoSession;
    case State::NotReady:
        return ReadingState::NotReady;
    case State::Absent:
    case State::NotRead:
        break;
    }
    return ReadingState::Absent;
}

Cause Rule(std::string_view rule) {
    return {.call = {}, .rule = std::string(rule), .remedy = {}};
}

Explanation Explained(ReadingState state, std::optional<Cause> cause, Classification classification) {
    classification.status = StatusFor(state, classification.status);
    return {state, std::move(cause), std::move(classification)};
}

/// Nothing else is known than what the description says of the value.
Explanation AsDescribed(ReadingState state, const Classification& described) {
    return Explained(state, Rule(described.meaning), described);
}

/// The groups that the library answers from a record, which it reads once in a process, and with what it does.
constexpr std::pair<Group, std::string_view> RecordOperations[] = {{Group::Wifi, "Wlan"},
                                                                   {Group::Bluetooth, "Bluetooth"}};

bool HasRecord(const Export& row) {
    return row.group == Group::Wifi || row.group == Group::Bluetooth;
}

/// Whether the deciding call shows which of its meanings the value has.
bool Proves(const Decision& decision, const SpecialValue& special) {
    if (special.states == exports::Bit(State::Ok)) {
        return false;
    }
    return decision.isFailure || special.state != State::Ok || decision.state == ReadingState::Failed ||
           (decision.state == ReadingState::Absent && special.CanMean(State::Absent));
}

/// A special value of the EC, the processor or the battery, all of whose calls succeeded.
Explanation WithoutFailure(const SpecialValue& special, bool answered, Classification described) {
    if (!answered) {
        return Explained(ReadingState::Absent,
                         Rule("this machine has no such reading, or its EC is not a known one"),
                         std::move(described));
    }
    if (special.CanMean(State::NotReady)) {
        return Explained(ReadingState::NotReady, Rule("the sensor has no measurement yet"),
                         std::move(described));
    }
    if (special.CanMean(State::Ok)) {
        described.meaning.clear();
        return Explained(ReadingState::Ok, std::nullopt, std::move(described));
    }
    return AsDescribed(StateFor(special.state), described);
}

/// Nothing failed. That something was not there is a remark.
Explanation Valued(const std::optional<Decision>& decision, Classification described) {
    if (described.status == Status::Partly) {
        return {ReadingState::Failed, Rule("an element could not be read"), std::move(described)};
    }
    const bool isRemarkable = decision && !decision->isExpected;
    return {ReadingState::Ok, isRemarkable ? std::optional(decision->cause) : std::nullopt,
            std::move(described)};
}

} // namespace

void Explainer::SessionOpened(bool isOpen, std::span<const BoundaryCall> calls) {
    m_isSessionOpen = isOpen;
    if (const auto decision = Decide(calls); decision && !isOpen) {
        m_noSession = decision->cause;
        if (decision->state == ReadingState::Absent) {
            m_noSession.remedy = "install the I/O driver";
        }
    }
}

void Explainer::NoSessionAsked() {
    m_noSession = Rule("--no-session: none was opened");
}

Explanation Explainer::Explain(const Export& row, const Answer& answer, std::vector<BoundaryCall> calls) {
    for (const auto& [group, operations] : RecordOperations) {
        if (Calls(calls, operations)) { // an export of another group may read it first
            m_records[static_cast<std::size_t>(group)] = {calls, m_sample};
        }
    }
    if (!HasRecord(row) || !m_isObserved) {
        return Judged(row, answer, calls);
    }
    const Record& record = m_records[static_cast<std::size_t>(row.group)];
    Explanation explanation = Judged(row, answer, record.calls);
    if (explanation.state == ReadingState::Ok && record.sample != m_sample) {
        explanation.state = ReadingState::Stale;
        explanation.cause = Rule("it is read once in a process");
    }
    return explanation;
}

Explanation Explainer::Judged(const Export& row, const Answer& answer,
                              std::span<const BoundaryCall> calls) const {
    Classification described = Classify(row, answer);
    const SpecialValue* const special = SpecialValueOf(row, answer);
    const bool needsSession = CanLackSession(row, answer);
    if (needsSession && !m_isSessionOpen && !DeviceAnswered(calls)) {
        return Explained(ReadingState::NoSession, m_noSession, std::move(described));
    }
    if (described.status == Status::Faulty) {
        return AsDescribed(ReadingState::Failed, described);
    }
    const auto decision = Decide(calls);
    const bool isValue = special == nullptr && HasValue(described.status);
    if (isValue) {
        if (!decision || !decision->isFailure) {
            return Valued(decision, std::move(described));
        }
        const bool isList = row.display == Display::List || row.display == Display::Document;
        described.status = isList && !decision->isUnnoticed ? Status::Partly : Status::Failed;
        return {decision->state, decision->cause, std::move(described)};
    }
    if (decision && (special == nullptr || Proves(*decision, *special))) {
        return Explained(decision->state == ReadingState::Ok ? ReadingState::Failed : decision->state,
                         decision->cause, std::move(described));
    }
    if (special == nullptr) {
        return AsDescribed(ReadingState::Failed, described);
    }
    if (needsSession && m_isObserved && special->state != State::Failed) {
        return WithoutFailure(*special, DeviceAnswered(calls), std::move(described));
    }
    if (needsSession && !m_isIdentified && special->state == State::Ok) {
        return Explained(ReadingState::Failed, Rule("the EC could not be identified"), std::move(described));
    }
    if (special->state == State::Ok) {
        return Valued(decision, std::move(described));
    }
    const bool isOpenAfterAll = special->state == State::NoSession && m_isSessionOpen;
    const ReadingState state = isOpenAfterAll ? ReadingState::Failed : StateFor(special->state);
    if (auto last = LastAnswer(calls); last && described.status != Status::NotRead) {
        return Explained(state, std::move(last), std::move(described));
    }
    return AsDescribed(state, described);
}

} // namespace tool
