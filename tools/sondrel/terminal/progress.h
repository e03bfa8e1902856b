// Shows what a command is waiting for, if standard error is a terminal.
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

    /// Begins an activity, which is shown once it has lasted long enough to be noticed.
    void Begin(std::string activity);

    /// Erases the line before something else is written to the terminal.
    void Clear();

private:
    void Show();
    void Erase();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::string m_activity; // empty: none
    std::chrono::steady_clock::time_point m_since;
    bool m_shown = false;
    bool m_ended = false;
    std::thread m_ticker; // none if nothing is shown
};

} // namespace tool
