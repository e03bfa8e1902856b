// Watches temperatures and fans; a reading without a value says why.
//
//   watch [SAMPLES]
#include <vesk_sondrel.hpp>

#include <cstdio>
#include <cstdlib>

#ifdef _WIN32
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace {

void WaitOneSecond() {
#ifdef _WIN32
    Sleep(1000);
#else
    sleep(1);
#endif
}

void PrintCpu(const vesk::Session& session) {
    const auto degrees = session.thermal().cpu_temperature();
    if (degrees) {
        std::printf("cpu %u %s", degrees->value, degrees->unit());
    } else {
        std::printf("cpu %s (%s)", to_string(degrees.state()), degrees.failure().meaning());
    }
}

void PrintFans(const vesk::Session& session) {
    const auto fans = session.thermal().fan_speeds();
    if (!fans) {
        std::printf(", fans %s\n", fans.failure().meaning());
        return;
    }
    std::printf(", fans");
    for (const auto& speed : *fans) { // each fan fails by itself
        std::printf(" %s", speed ? std::to_string(speed->value).c_str() : "-");
    }
    std::printf(" rpm\n");
}

int Watch(int samples) {
    const vesk::Library library = vesk::Library::load();
    const vesk::Session session = library.open_session().value();
    for (int taken = 0; samples == 0 || taken < samples; ++taken) {
        if (taken > 0) {
            WaitOneSecond();
        }
        PrintCpu(session);
        PrintFans(session);
        std::fflush(stdout);
    }
    return 0;
}

} // namespace

int main(int count, char** arguments) {
    try {
        return Watch(count > 1 ? std::atoi(arguments[1]) : 0);
    } catch (const std::runtime_error& error) { // a LoadError has the system's message
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
