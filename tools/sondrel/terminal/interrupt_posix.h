// What the terminal asks of the signals.
#pragma once

namespace tool::interrupt {

/// Called from signal handlers: before the program is stopped (Ctrl-Z), and when it goes on.
void WhenStopped(void (*before)(), void (*after)());

} // namespace tool::interrupt
