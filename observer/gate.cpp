#include "observer/gate.h"

#include "machine/machine.h"

#include <cstdio>

namespace machine {
namespace {

thread_local unsigned CallsUnderWay = 0;
CallObserver TheObserver;

} // namespace

void ObserveCalls(CallObserver observer) {
    TheObserver = observer;
}

Call::Inside::Inside() {
    if (CallsUnderWay++ == 0 && TheObserver.began != nullptr) {
        TheObserver.began();
    }
}

Call::Inside::~Inside() {
    if (--CallsUnderWay == 0 && TheObserver.ended != nullptr) {
        TheObserver.ended();
    }
}

void Gate::Restart(FaultPlan plan) {
    m_plan = plan;
    m_count = 0;
    m_injected = 0;
    m_history.clear();
}

Failure Gate::Enter(Operation operation) {
    ++m_count;
    if (m_keepHistory) {
        m_history.push_back(operation);
    }
    const bool meant =
        m_plan.nth != 0 && (m_count == m_plan.nth || (m_plan.andLater && m_count > m_plan.nth));
    if (!meant || (RowOf(operation).failures & static_cast<std::uint8_t>(m_plan.kind)) == 0) {
        return Failure::None;
    }
    ++m_injected;
    return m_plan.kind;
}

std::uintptr_t Gate::Opened(std::string what) {
    const std::uintptr_t number = m_nextNumber;
    m_nextNumber += 4;
    m_ledger.emplace(number, std::move(what));
    return number;
}

bool Gate::Closed(std::uintptr_t number) {
    return m_ledger.erase(number) != 0;
}

std::vector<std::string> Gate::OpenThings() const {
    std::vector<std::string> things;
    things.reserve(m_ledger.size());
    for (const auto& [number, what] : m_ledger) {
        things.push_back(what);
    }
    return things;
}

Call::Call(Operation operation)
    : m_machine(MachineMutex()),
      m_operation(operation),
      m_failure(Current().gate.Enter(operation)),
      m_transcribing(Current().gate.Transcribing()) {
    if (m_transcribing) {
        m_line = RowOf(operation).name;
    }
}

Call::~Call() {
    if (m_transcribing && Current().gate.Transcribing()) {
        Current().gate.Write(m_line);
    }
}

void Call::AppendAnswer(const char* base, std::int64_t answer) {
    char text[32];
    std::snprintf(text, sizeof text, " = %s%lld", base, static_cast<long long>(answer));
    m_line += text;
}

} // namespace machine
