// A thread of a test. The compiler's standard library has none in its win32 thread model.
#pragma once

#include <windows.h>

#include <functional>
#include <stdexcept>
#include <utility>

namespace test {

class Thread {
public:
    explicit Thread(std::function<void()> run)
        : m_run(std::move(run)), m_handle(::CreateThread(nullptr, 0, Run, &m_run, 0, nullptr)) {
        if (m_handle == nullptr) {
            throw std::runtime_error("no thread can be started");
        }
    }

    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;

    ~Thread() {
        Join();
        ::CloseHandle(m_handle);
    }

    void Join() { ::WaitForSingleObject(m_handle, INFINITE); }

private:
    static DWORD WINAPI Run(void* run) {
        (*static_cast<std::function<void()>*>(run))();
        return 0;
    }

    std::function<void()> m_run;
    HANDLE m_handle;
};

} // namespace test
