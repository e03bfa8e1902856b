// The boundary calls of the export call that was made last.
#pragma once

#include "causes/boundary_call.h"
#include "exports/library.h"

#include <vector>

namespace tool {

class CallLog {
public:
    /// Logs nothing without a library, or if it is not observed. One log at a time.
    explicit CallLog(const Library* library);
    CallLog(const CallLog&) = delete;
    CallLog& operator=(const CallLog&) = delete;
    ~CallLog();

    [[nodiscard]] bool IsObserved() const { return m_setSink != nullptr; }

    /// The calls since the last time.
    std::vector<BoundaryCall> Take();

private:
    static void OnBoundaryCall(void* context, const VeskObserver_Call* call);

    decltype(VeskObserver_SetSink)* m_setSink = nullptr;
    std::vector<BoundaryCall> m_calls;
};

} // namespace tool
