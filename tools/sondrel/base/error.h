// Why the tool cannot do what it was asked, and its exit statuses.
#pragma once

#include <stdexcept>
#include <string>

namespace tool {

inline constexpr int ExitOk = 0;
/// The library broke the rules of a call, snapshots differ, a machine's profile has errors, or a
/// precondition is not met.
inline constexpr int ExitFinding = 1;
/// A wrong name, argument, option, library, machine or file: nothing was read.
inline constexpr int ExitError = 2;

/// One line for the user.
class Error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// ": " and the reason of the C library's last failure; empty if there was none.
std::string BecauseOfErrno();

} // namespace tool
