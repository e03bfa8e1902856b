// What GoogleTest lets its user bring along: its notification needs a mutex and a condition variable, which the
// compiler's standard library does not have in its win32 thread model.
#pragma once

#include <windows.h>

#define GTEST_HAS_NOTIFICATION_ 1

namespace testing::internal {

class Notification {
public:
    Notification() = default;
    Notification(const Notification&) = delete;
    Notification& operator=(const Notification&) = delete;
    ~Notification() { ::CloseHandle(m_event); }

    void Notify() { ::SetEvent(m_event); }
    void WaitForNotification() { ::WaitForSingleObject(m_event, INFINITE); }

private:
    HANDLE m_event = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
};

} // namespace testing::internal
