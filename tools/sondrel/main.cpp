// sondrel: calls the library's exports from a command line.
#include "commands.h"
#include "options.h"
#include "system.h"
#include "trouble.h"

#include <exception>
#include <iostream>

namespace {

int Run(const tool::Options& options) {
    if (options.run != nullptr) {
        return options.run(options);
    }
    switch (options.command) {
    case tool::Command::List:
        return tool::ListExports(options);
    case tool::Command::Call:
        return tool::CallExport(options);
    case tool::Command::Report:
        return tool::Report(options);
    case tool::Command::None:
        break;
    }
    return tool::ExitDone;
}

} // namespace

int main(int count, char** arguments) {
    try {
        tool::host_system::PrepareConsole();
        const int status = Run(tool::ParseCommandLine(tool::host_system::Arguments(count, arguments)));
        if (!std::cout.flush()) {
            throw tool::Trouble("the output could not be written");
        }
        return status;
    } catch (const std::exception& problem) {
        std::cerr << "sondrel: " << problem.what() << '\n';
        return tool::ExitTrouble;
    }
}
