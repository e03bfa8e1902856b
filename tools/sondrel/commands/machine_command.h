// The commands of `sondrel machine`.
#pragma once

#include "commands/options.h"

namespace tool {

int NewMachine(const Options& options);
int MachineFromRecording(const Options& options);
int CheckMachines(const Options& options);
int ShowMachine(const Options& options);
int ListMachines(const Options& options);

} // namespace tool
