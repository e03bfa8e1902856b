#include "base/child.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <thread>

namespace tool::host_system {
namespace {

using Clock = std::chrono::steady_clock;

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

/// Looks again after a while, which grows: most children take a few milliseconds.
std::optional<int> StatusOf(pid_t child, Clock::time_point end) {
    constexpr std::chrono::milliseconds LongestPause{20};
    int status = 0;
    for (std::chrono::milliseconds pause{1}; waitpid(child, &status, WNOHANG) == 0;
         pause = std::min(pause * 2, LongestPause)) {
        if (Clock::now() > end) {
            kill(child, SIGKILL);
            waitpid(child, &status, 0);
            return std::nullopt;
        }
        std::this_thread::sleep_for(pause);
    }
    return WIFEXITED(status) ? std::optional(WEXITSTATUS(status)) : std::nullopt;
}

} // namespace

std::optional<int> RunOneself(const std::vector<std::string>& arguments,
                              const std::vector<Variable>& variables, ChildOutput output,
                              std::chrono::seconds time) {
    const std::string program = "/proc/self/exe";
    std::vector<std::string> line{program};
    line.insert(line.end(), arguments.begin(), arguments.end());
    std::vector<std::string> environment;
    environment.reserve(variables.size());
    for (const auto& [name, value] : variables) {
        environment.emplace_back(name).append("=").append(value);
    }
    for (char** own = environ; *own != nullptr; ++own) {
        const std::string text(*own);
        if (std::ranges::none_of(variables,
                                 [&](const Variable& each) { return text.starts_with(each.name + '='); })) {
            environment.push_back(text);
        }
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    if (output == ChildOutput::Dropped) {
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
    }
    pid_t child = 0;
    const int problem = posix_spawn(&child, program.c_str(), &actions, nullptr, Pointers(line).data(),
                                    Pointers(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    return problem != 0 ? std::nullopt : StatusOf(child, Clock::now() + time);
}

} // namespace tool::host_system
