#include "terminal_run.h"

#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace test {
namespace {

winsize SizeOf(unsigned short columns, unsigned short lines) {
    return {.ws_row = lines, .ws_col = columns, .ws_xpixel = 0, .ws_ypixel = 0};
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace

TerminalRun::TerminalRun(const std::string& program, const std::vector<std::string>& arguments,
                         const std::vector<std::string>& settings, unsigned short columns,
                         unsigned short lines) {
    std::vector<std::string> line{program};
    line.insert(line.end(), arguments.begin(), arguments.end());
    std::vector<std::string> environment = settings; // the first value of a name counts
    environment.insert(environment.end(), {"TERM=xterm-256color", "PATH=/usr/bin:/bin"});
    std::vector<char*> words = Pointers(line);
    std::vector<char*> variables = Pointers(environment);
    winsize size = SizeOf(columns, lines);
    m_process = forkpty(&m_terminal, nullptr, nullptr, &size);
    if (m_process == 0) {
        execve(program.c_str(), words.data(), variables.data());
        _exit(127);
    }
    if (m_process < 0) {
        throw std::runtime_error("no pseudo-terminal");
    }
}

TerminalRun::~TerminalRun() {
    if (m_process > 0) {
        kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
    }
    close(m_terminal);
}

bool TerminalRun::ReadSome() {
    std::array<char, 4096> bytes{};
    const ssize_t length = read(m_terminal, bytes.data(), bytes.size());
    if (length <= 0) {
        return false; // the other end is closed
    }
    m_output.append(bytes.data(), static_cast<std::size_t>(length));
    return true;
}

bool TerminalRun::ReadUntil(const std::string& text, std::size_t from) {
    while (m_output.find(text, from) == std::string::npos) {
        if (!ReadSome()) {
            return false;
        }
    }
    return true;
}

void TerminalRun::Type(const std::string& keys) const {
    if (write(m_terminal, keys.data(), keys.size()) < 0) {
        throw std::runtime_error("cannot write to the pseudo-terminal");
    }
}

void TerminalRun::Resize(unsigned short columns, unsigned short lines) const {
    const winsize size = SizeOf(columns, lines);
    ioctl(m_terminal, TIOCSWINSZ, &size);
}

void TerminalRun::Signal(int signal) const {
    kill(m_process, signal);
}

bool TerminalRun::Stopped() const {
    int status = 0;
    return waitpid(m_process, &status, WUNTRACED) == m_process && WIFSTOPPED(status);
}

int TerminalRun::End() {
    while (ReadSome()) {
    }
    int status = -1;
    waitpid(m_process, &status, 0);
    m_process = -1;
    return status;
}

termios TerminalRun::Modes() const {
    termios modes{};
    tcgetattr(m_terminal, &modes);
    return modes;
}

std::vector<std::string> TerminalRun::VisibleLines(const std::string& output) {
    static const std::regex Erased("[^\n]*\r\x1b\\[K");
    static const std::regex Sequence("\x1b\\[[?0-9;]*[A-Za-z]|\r");
    std::istringstream text(std::regex_replace(std::regex_replace(output, Erased, ""), Sequence, ""));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) {
        lines.push_back(line);
    }
    return lines;
}

} // namespace test
