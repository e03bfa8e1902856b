// Why the tool cannot do what it was asked: one line for the user.
#pragma once

#include <stdexcept>

namespace tool {

/// What every command ends with.
inline constexpr int ExitDone = 0;
/// The call ran, and something is wrong with what it did.
inline constexpr int ExitFault = 1;
/// Two snapshots differ.
inline constexpr int ExitDifference = 1;
/// A machine's profile has mistakes.
inline constexpr int ExitMistakes = 1;
/// A wrong name, argument, option, library or machine: nothing was read.
inline constexpr int ExitTrouble = 2;

class Trouble : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace tool
