#include "observer/recording/system.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <climits>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace observer::system {

std::string Environment(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

NewFile::~NewFile() {
    if (m_file >= 0) {
        close(static_cast<int>(m_file));
    }
}

bool NewFile::Create(const std::string& path) {
    m_file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, S_IRUSR | S_IWUSR);
    return m_file >= 0;
}

// NOLINTNEXTLINE(readability-make-member-function-const): it writes
bool NewFile::Append(std::string_view text) noexcept {
    while (!text.empty()) {
        const ssize_t written = write(static_cast<int>(m_file), text.data(), text.size());
        if (written < 0 && errno != EINTR) {
            return false;
        }
        text.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
    return true;
}

std::optional<std::string> Content(const std::string& path, std::size_t largest, std::string& problem) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat facts {};
    if (file < 0 || fstat(file, &facts) != 0) {
        problem = LastProblem();
    } else if (!S_ISREG(facts.st_mode)) {
        problem = "this is no file";
    } else if (facts.st_size < 0 || static_cast<std::uint64_t>(facts.st_size) > largest) {
        problem = "the file is too large";
    }
    std::string text;
    while (problem.empty() && text.size() <= largest) {
        char block[65536];
        const ssize_t count = read(file, block, sizeof block);
        if (count == 0) {
            break;
        }
        if (count < 0 && errno != EINTR) {
            problem = LastProblem();
        }
        text.append(block, count < 0 ? 0 : static_cast<std::size_t>(count));
    }
    if (file >= 0) {
        close(file);
    }
    return problem.empty() ? std::optional(std::move(text)) : std::nullopt;
}

std::string LastProblem() {
    return std::strerror(errno);
}

Host CurrentHost() {
    char program[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", program, sizeof program);
    const bool root = geteuid() == 0;
    return {.process = static_cast<std::uint64_t>(getpid()),
            .program = std::string(program, length < 0 ? 0 : static_cast<std::size_t>(length)),
            .user = root ? "administrator" : "user",
            .elevated = root,
            .session = static_cast<std::uint64_t>(getsid(0))};
}

std::string Build() {
    return "linux, compiler " __VERSION__;
}

void Complain(const std::string& line) noexcept {
    std::fprintf(stderr, "%s\n", line.c_str());
}

} // namespace observer::system
