// sondrel: calls the library's exports from a command line.
#include "commands.h"
#include "interrupt.h"
#include "options.h"
#include "system.h"
#include "terminal.h"
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
    case tool::Command::Watch:
        return tool::Watch(options);
    case tool::Command::Trace:
        return tool::TraceExport(options);
    case tool::Command::None:
        break;
    }
    return tool::ExitDone;
}

int RunToTheEnd(const std::vector<std::string>& arguments) {
    try {
        const int status = Run(tool::ParseCommandLine(arguments));
        if (!std::cout.flush()) {
            throw tool::Trouble("the output could not be written");
        }
        tool::interrupt::Check();
        return status;
    } catch (const tool::interrupt::Interruption&) {
        std::cout.flush();
        tool::interrupt::End();
    } catch (const std::exception& problem) {
        std::cerr << "sondrel: " << problem.what() << '\n';
        return tool::ExitTrouble;
    }
}

} // namespace

int main(int count, char** arguments) {
    tool::interrupt::Listen();
    const tool::terminal::Console console;
    return RunToTheEnd(tool::host_system::Arguments(count, arguments));
}
