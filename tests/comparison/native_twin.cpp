// What the native library tells of a machine: twin MACHINE > native.json
#include "scenario.h"

#include <exception>
#include <iostream>

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: twin MACHINE\n";
        return 2;
    }
    try {
        tool::HostOptions options;
        options.machine = arguments[1];
        options.store = ":memory:";
        twin::Tell(tool::Host(options));
        return std::cout.flush() ? 0 : 1;
    } catch (const std::exception& problem) {
        std::cerr << "twin: " << problem.what() << '\n';
        return 1;
    }
}
