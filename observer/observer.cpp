#include "observer/observer.h"

#include "observer/back_end.h"
#include "observer/call.h"
#include "observer/delivery.h"
#include "observer/export_call.h"
#include "observer/lock.h"
#include "observer/recording/replay.h"
#include "observer/undestroyed.h"

#include <algorithm>
#include <atomic>

namespace observer {
namespace {

using Clock = std::chrono::steady_clock;

struct State {
    Lock lock;
    FaultPlan plan;
    std::uint64_t planned = 0; // calls that the plan counts
    Costs costs;
    Ledger ledger;
    std::uint32_t handlesOutside = 0; // numbered outside any export call
};

State& Shared() {
    return Undestroyed<State>();
}

struct Sinks {
    SinkLock lock;
    std::vector<Sink*> all;
    std::atomic<bool> any = false;
};

Sinks& TheSinks() {
    return Undestroyed<Sinks>();
}

std::atomic<std::uint64_t> Calls = 0; // ever
std::atomic<std::uint32_t> Threads = 0;

thread_local unsigned Below = 0; // boundary calls of this thread that are under way
thread_local platform::SystemError ThreadsLastError = platform::error::Success;

std::uint64_t NumberOfExportCall() {
    const ExportCall* const exportCall = ExportCall::Current();
    return exportCall == nullptr ? 0 : exportCall->Number();
}

/// How many handles are numbered so far. With the state's lock held.
std::uint32_t& HandlesNumbered(State& state) {
    if (ExportCall* const exportCall = ExportCall::Current()) {
        return exportCall->HandlesNumbered();
    }
    return state.handlesOutside;
}

/// With the state's lock held.
Failure Decide(State& state, const OperationRow& row) {
    const FaultPlan& plan = state.plan;
    if (plan.nth == 0 || (plan.only != nullptr && plan.only->name != row.name)) {
        return Failure::None;
    }
    const std::uint64_t place = ++state.planned;
    const bool meant = place == plan.nth || (plan.andLater && place > plan.nth);
    if (!meant || !row.CanFail(plan.kind)) {
        return Failure::None;
    }
    ++state.costs.injected;
    return plan.kind;
}

template <class Event>
void Deliver(void (Sink::*take)(const Event&), const Event& event) {
    Sinks& sinks = TheSinks();
    const std::lock_guard lock(sinks.lock);
    std::size_t place = 0;
    while (place < sinks.all.size()) { // a sink may remove itself
        (sinks.all[place++]->*take)(event);
    }
}

} // namespace

void AddSink(Sink& sink) {
    Sinks& sinks = TheSinks();
    const std::lock_guard lock(sinks.lock);
    sinks.all.push_back(&sink);
    sinks.any = true;
}

void RemoveSink(Sink& sink) noexcept {
    Sinks& sinks = TheSinks();
    const std::lock_guard lock(sinks.lock);
    std::erase(sinks.all, &sink);
    sinks.any = !sinks.all.empty();
}

void Restart(FaultPlan plan) {
    State& state = Shared();
    const std::lock_guard lock(state.lock);
    state.plan = plan;
    state.planned = 0;
    state.costs = {};
}

Costs CurrentCosts() {
    State& state = Shared();
    const std::lock_guard lock(state.lock);
    return state.costs;
}

std::vector<OpenThing> OpenThings() {
    State& state = Shared();
    const std::lock_guard lock(state.lock);
    return state.ledger.Open();
}

void ForgetOpenThings() {
    State& state = Shared();
    const std::lock_guard lock(state.lock);
    state.ledger = {};
    state.handlesOutside = 0;
}

bool IsBelowBoundary() noexcept {
    return Below != 0;
}

bool IsInCore() noexcept {
    return ExportCall::Current() != nullptr && Below == 0;
}

std::uint32_t NumberOfThread() noexcept {
    thread_local const std::uint32_t Number = ++Threads;
    return Number;
}

bool HasSinks() noexcept {
    return TheSinks().any;
}

void DeliverBegan(const ExportRecord& record) {
    Deliver(&Sink::ExportBegan, record);
}

void DeliverEnded(const ExportRecord& record) {
    Deliver(&Sink::ExportEnded, record);
}

Call::Call(Operation operation) noexcept : m_nested(Below++ != 0) {
    if (m_nested) {
        return;
    }
    State& state = Shared();
    std::uint64_t number = 0;
    {
        const std::lock_guard lock(state.lock);
        number = ++state.costs.calls;
        m_injected = Decide(state, RowOf(operation));
    }
    const ExportCall* const exportCall = ExportCall::Current();
    m_replayed = IsReplaying() && !RowOf(operation).reports;
    if (TheSinks().any || m_replayed) {
        Note([&] {
            m_record.emplace();
            m_record->operation = operation;
            m_record->exportName = exportCall == nullptr ? nullptr : exportCall->Name();
            m_record->exportCall = NumberOfExportCall();
            m_record->number = number;
            m_record->identity = ++Calls;
            m_record->thread = NumberOfThread();
            m_record->start = Clock::now().time_since_epoch();
            m_record->injected = m_injected;
        });
    }
}

Call::~Call() {
    if (m_record) {
        m_record->outOfMemory = !m_answered;
        Note([&] { Deliver(&Sink::Ended, *m_record); });
        m_record.reset();
    }
    --Below;
}

void Call::Began() noexcept {
    if (m_record) {
        Note([&] { Deliver(&Sink::Began, *m_record); });
    }
}

const RecordedCall* Call::Recorded() {
    ReplayedExport* const replayed =
        ExportCall::Current() == nullptr ? nullptr : ExportCall::Current()->Replayed();
    const RecordedCall* recorded = nullptr;
    if (replayed != nullptr && m_record && !m_record->incomplete) {
        Note([&] { recorded = replayed->Match(*m_record); });
    }
    return recorded;
}

void Call::CannotAnswer(const RecordedCall& recorded) {
    Note([&] { ExportCall::Current()->Replayed()->CannotAnswer(*m_record, recorded); });
}

std::uintptr_t Call::ReplayedHandle(const HandleName& name) {
    return ExportCall::Current()->Replayed()->NumberOf(name);
}

void Call::Withdraw() noexcept {
    m_injected = Failure::None;
    if (m_record) {
        m_record->injected = Failure::None;
    }
    State& state = Shared();
    const std::lock_guard lock(state.lock);
    --state.costs.injected;
}

void Call::Opened(HandleKind kind, std::uintptr_t handle, std::u16string_view openedOn) {
    State& state = Shared();
    const std::lock_guard lock(state.lock);
    std::uint32_t& numbered = HandlesNumbered(state);
    if (state.ledger.Open(kind, handle, openedOn, NumberOfExportCall(), numbered + 1) && !IsReporting(kind)) {
        ++numbered;
    }
}

void Call::Closed(HandleKind kind, std::uintptr_t handle) noexcept {
    State& state = Shared();
    const std::lock_guard lock(state.lock);
    state.ledger.Close(kind, handle);
}

HandleName Call::NameOf(HandleKind kind, std::uintptr_t handle) {
    if (IsReporting(kind)) {
        return {.kind = kind, .platforms = handle};
    }
    State& state = Shared();
    const std::lock_guard lock(state.lock);
    std::uint32_t& numbered = HandlesNumbered(state);
    if (IsOnlyMet(kind) && state.ledger.Meet(kind, handle, NumberOfExportCall(), numbered + 1)) {
        ++numbered;
    }
    return state.ledger.NameOf(kind, handle, NumberOfExportCall());
}

void Call::Entered() noexcept {
    m_entered = Clock::now();
}

void Call::Left() noexcept {
    ThreadsLastError = platform::back_end::GetLastError();
    const Clock::duration duration = Clock::now() - m_entered;
    if (m_record) {
        m_record->duration = duration;
    }
    State& state = Shared();
    const std::lock_guard lock(state.lock);
    state.costs.inBackEnd += duration;
}

void Call::Answered(bool succeeded, bool setsLastError) noexcept {
    m_answered = true;
    if (m_record) {
        m_record->succeeded = succeeded;
        if (setsLastError) {
            m_record->lastError = ThreadsLastError;
        }
    }
}

void Call::Lost() noexcept {
    if (m_record) {
        m_record->incomplete = true;
    }
    State& state = Shared();
    const std::lock_guard lock(state.lock);
    ++state.costs.recordsLost;
}

platform::SystemError LastErrorOfThread() noexcept {
    return ThreadsLastError;
}

void SetLastErrorOfThread(platform::SystemError error) noexcept {
    ThreadsLastError = error;
}

BelowBoundary::BelowBoundary() noexcept {
    ++Below;
}

BelowBoundary::~BelowBoundary() {
    --Below;
}

AboveBoundary::AboveBoundary() noexcept : m_below(Below) {
    Below = 0;
}

AboveBoundary::~AboveBoundary() {
    Below = m_below;
}

} // namespace observer
