// One host, any machine: the simulated machine is chosen from outside, and the host's own code knows nothing of it.
// Linked with the library and its simulated machine, which only the kit for Linux has.
//
//   choose_machine MACHINE     a built-in machine, or the file of a profile
#include <vesk_sondrel.hpp>
#include <vesk_sondrel_machine.h>

#include <cstdio>

namespace {

/// What the host does, on a real machine as on a simulated one.
int Host() {
    const vesk::Library library = vesk::Library::linked();
    const vesk::Session session = library.open_session().value();
    const auto makers = session.inventory().board_maker();
    std::printf("firmware %s, %s\n", session.identity().firmware_revision().value().c_str(),
                makers ? vesk::utf8(makers->front()).c_str() : "maker not known");
    return 0;
}

} // namespace

int main(int count, char** arguments) {
    char problem[512] = "usage: choose_machine MACHINE";
    if (count != 2 || VeskMachine_Start(arguments[1], ":memory:", problem, sizeof problem) != 1) {
        std::fprintf(stderr, "%s\n", problem);
        return 2;
    }
    try {
        return Host();
    } catch (const std::runtime_error& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
