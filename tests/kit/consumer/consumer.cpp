#include <vesk_sondrel.hpp>

#include <cstdio>
#include <string>

#ifdef ON_SIMULATED_MACHINE
#include <vesk_sondrel_machine.h>

/// A host's test chooses its machine.
static bool StartMachine() {
    char problem[256];
    return VeskMachine_Start("gl", ":memory:", problem, sizeof problem) == 1 && InitializeSondrel() == 1 &&
           EC_ReadEcFwRev() == 0x474C;
}
#else
static bool StartMachine() {
    return true;
}
#endif

int main() {
    if (!StartMachine()) {
        std::puts("the machine is not the one that was asked for");
        return 1;
    }
    // The header for C++ finds what the program is linked with.
    std::string problem;
    const auto library = vesk::Library::linked(problem);
    if (!library || library->session().io_version().value_or(0) != GetIoDllVersion()) {
        std::printf("not linked: %s\n", problem.c_str());
        return 1;
    }
    const std::string mode = RF_PhyMode();
    std::printf("radio standard %s\n", mode.empty() ? "missing" : "read");
    return 0;
}
