// What recording and replaying need of the operating system. Names and texts are UTF-8.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace observer::system {

/// Empty for a variable that is not set.
std::string Environment(const char* name);

/// A new file, readable by its owner only, for this process alone to write. Every write reaches the operating system
/// before it returns, so that nothing is lost with the process.
class NewFile {
public:
    NewFile() = default;
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile();

    /// False where it cannot be made, and where a file of this name exists; `LastProblem` says why.
    bool Create(const std::string& path);

    /// False after a failure.
    bool Append(std::string_view text) noexcept;

private:
    std::intptr_t m_file = -1;
};

/// Nothing, with the reason, where it is no readable file or a larger one.
std::optional<std::string> Content(const std::string& path, std::size_t largest, std::string& problem);

/// The reason for the last failure of this thread's calls into the operating system.
std::string LastProblem();

struct Host {
    std::uint64_t process = 0;
    std::string program;
    std::string user; // "system", "service", "administrator" or "user"
    bool elevated = false;
    std::uint64_t session = 0;
};

Host CurrentHost();

/// "linux, gcc 12.2.0": the system and the compiler that this library was built for.
std::string Build();

/// A machine that is no recording; an empty name is the default one, an empty store its usual one. Natively the simulated
/// machine defines it; elsewhere there is none. Throws with the reason.
void StartMachine(const std::string& name, const std::string& store);

/// One line for the administrator of this host.
void Complain(const std::string& line) noexcept;

} // namespace observer::system
