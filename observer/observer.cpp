#include "observer/observer.h"

#include "observer/back_end.h"
#include "observer/call.h"
#include "observer/export_call.h"
#include "observer/lock.h"

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
    static State Shared;
    return Shared;
}

struct Sinks {
    SinkLock lock;
    std::vector<Sink*> all;
    std::atomic<bool> any = false;
};

Sinks& TheSinks() {
    static Sinks Sinks;
    return Sinks;
}

std::atomic<std::uint64_t> ExportCalls = 0;
std::atomic<std::uint32_t> Threads = 0;

thread_local unsigned Below = 0; // boundary calls of this thread that are under way
thread_local platform::SystemError ThreadsLastError = platform::error::Success;
thread_local ExportCall* Export = nullptr;

std::uint32_t NumberOfThread() {
    thread_local const std::uint32_t Number = ++Threads;
    return Number;
}

std::uint64_t NumberOfExportCall() {
    return Export == nullptr ? 0 : Export->Number();
}

/// How many handles are numbered so far. With the state's lock held.
std::uint32_t& HandlesNumbered(State& state) {
    if (Export != nullptr) {
        return Export->HandlesNumbered();
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

void Deliver(const Record& record) {
    Sinks& sinks = TheSinks();
    const std::lock_guard lock(sinks.lock);
    std::size_t place = 0;
    while (place < sinks.all.size()) { // a sink may remove itself
        sinks.all[place++]->Ended(record);
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
    return Export != nullptr && Below == 0;
}

ExportCall::ExportCall(std::size_t place, const char* name,
                       std::span<const ExportArgument> arguments) noexcept
    : m_place(place), m_name(name), m_arguments(arguments), m_number(++ExportCalls), m_outer(Export) {
    Export = this;
}

ExportCall::~ExportCall() {
    Export = m_outer;
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
    if (TheSinks().any) {
        Note([&] {
            m_record.emplace();
            m_record->operation = operation;
            m_record->exportName = Export == nullptr ? nullptr : Export->Name();
            m_record->exportCall = NumberOfExportCall();
            m_record->number = number;
            m_record->thread = NumberOfThread();
            m_record->start = Clock::now().time_since_epoch();
            m_record->injected = m_injected;
        });
    }
}

Call::~Call() {
    if (m_record) {
        m_record->outOfMemory = !m_answered;
        Note([&] { Deliver(*m_record); });
        m_record.reset();
    }
    --Below;
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
    if (state.ledger.Open(kind, handle, openedOn, NumberOfExportCall(), numbered + 1)) {
        ++numbered;
    }
}

void Call::Closed(HandleKind kind, std::uintptr_t handle) noexcept {
    State& state = Shared();
    const std::lock_guard lock(state.lock);
    state.ledger.Close(kind, handle);
}

HandleName Call::NameOf(HandleKind kind, std::uintptr_t handle) {
    if (kind == HandleKind::TraceProvider) {
        // Unnumbered: whether anything is traced must not change the names of everything else.
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

AboveBoundary::AboveBoundary() noexcept : m_below(Below) {
    Below = 0;
}

AboveBoundary::~AboveBoundary() {
    Below = m_below;
}

} // namespace observer
