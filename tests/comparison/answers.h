// What both libraries are asked, in the same order, by a program of theirs.
#pragma once

#include "readings/host.h"

namespace comparison {

/// Prints an array of reports as JSON: every reading; what setting and closing gave; every reading after that; and
/// every reading without a session. Throws tool::Error where a call cannot be made.
void PrintAnswers(const tool::Host& host);

} // namespace comparison
