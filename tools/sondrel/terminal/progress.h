// Shows what a command is waiting for, if standard error is a terminal.
#pragma once

#include "terminal/ticker.h"

#include <chrono>
#include <string>

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

    std::string m_activity; // empty: none
    std::chrono::steady_clock::time_point m_since;
    bool m_shown = false;
    bool m_ended = false;
    Ticker m_ticker; // not started if nothing is shown
};

} // namespace tool
