// A complete host: loads the library, opens a session, reads a few values, closes the session.
#include <vesk_sondrel.hpp>

#include <cstdio>

int main() {
    std::string problem;
    const auto library = vesk::Library::load(vesk::detail::DefaultPath, problem);
    if (!library) {
        std::printf("%s\n", problem.c_str());
        return 1;
    }
    // What the embedded controller and the processor report needs a session, which ends with its object.
    if (const auto session = library->open_session()) {
        if (const auto mode = session->system().tablet_mode()) {
            std::printf("tablet mode: %u\n", *mode);
        } else {
            std::printf("tablet mode: %s\n", mode.failure().meaning());
        }
    } else {
        std::printf("no driver session: %s\n", session.failure().meaning());
    }
    // Everything else does not.
    if (const auto serial = library->inventory().serial_number()) {
        std::printf("serial number: %s\n", vesk::utf8(serial->front()).c_str());
    } else {
        std::printf("serial number: %s\n", serial.failure().meaning());
    }
    return 0;
}
