// The built tool on a pseudo-terminal.
#pragma once

#include <sys/types.h>
#include <termios.h>

#include <functional>
#include <string>
#include <vector>

namespace test {

class TerminalRun {
public:
    /// `settings` are added to the environment of a user with a colour terminal.
    TerminalRun(const std::string& program, const std::vector<std::string>& arguments,
                const std::vector<std::string>& settings, unsigned short columns, unsigned short lines = 24);
    TerminalRun(const TerminalRun&) = delete;
    TerminalRun& operator=(const TerminalRun&) = delete;
    ~TerminalRun();

    /// Reads until the output contains the text after `from`. False if it ends first. How long that takes depends on what
    /// else the computer does: only the test's own time limit ends the wait.
    bool ReadUntil(const std::string& text, std::size_t from = 0);

    void Type(const std::string& keys) const;
    void Resize(unsigned short columns, unsigned short lines) const;
    void Signal(int signal) const;

    /// Waits until the program is stopped.
    [[nodiscard]] bool Stopped() const;

    /// Reads to the end. Returns the status of the program as waitpid does.
    int End();

    [[nodiscard]] const std::string& Output() const { return m_output; }

    /// The terminal's modes.
    [[nodiscard]] termios Modes() const;

    /// The visible lines of an output, without control sequences.
    static std::vector<std::string> VisibleLines(const std::string& output);

private:
    bool ReadSome();

    int m_terminal = -1;
    pid_t m_process = -1;
    std::string m_output;
};

} // namespace test
