// Signals that concern the terminal.
#pragma once

namespace tool::interrupt {

/// The functions are called from signal handlers: before the program is stopped (Ctrl-Z), and when it continues.
void SetStopHandlers(void (*before)(), void (*after)());

} // namespace tool::interrupt
