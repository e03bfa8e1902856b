#include "causes/call_log.h"

#include <utility>

namespace tool {

CallLog::CallLog(const Library* library) {
    if (library != nullptr) {
        m_setSink = reinterpret_cast<decltype(VeskObserver_SetSink)*>(library->Find("VeskObserver_SetSink"));
    }
    if (m_setSink != nullptr) {
        m_setSink(OnBoundaryCall, this);
    }
}

CallLog::~CallLog() {
    if (m_setSink != nullptr) {
        m_setSink(nullptr, nullptr);
    }
}

std::vector<BoundaryCall> CallLog::Take() {
    return std::exchange(m_calls, {});
}

void CallLog::OnBoundaryCall(void* context, const VeskObserver_Call* call) {
    if (auto logged = BoundaryCallOf(*call); logged && call->exportCall != 0) {
        static_cast<CallLog*>(context)->m_calls.push_back(*std::move(logged));
    }
}

} // namespace tool
