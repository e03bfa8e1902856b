// What a command is waiting for, on the terminal of standard error; nothing elsewhere.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace tool {

class Progress {
public:
    Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

    /// What is being done from now on. It is shown once it has lasted long enough to be noticed.
    void Begin(std::string what);

    /// Takes the line off the terminal before something else is written to it.
    void Clear();

private:
    void Show();
    void Erase();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::string m_what; // empty: nothing is being done
    std::chrono::steady_clock::time_point m_since;
    bool m_shown = false;
    bool m_ended = false;
    std::thread m_ticker; // none where nobody looks
};

} // namespace tool
