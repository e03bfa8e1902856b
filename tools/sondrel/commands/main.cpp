// sondrel: calls the library's exports from a command line.
#include "base/error.h"
#include "base/system.h"
#include "commands/options.h"
#include "terminal/interrupt.h"
#include "terminal/terminal.h"

#include <cerrno>
#include <exception>
#include <iostream>

namespace {

int Run(const std::vector<std::string>& arguments) {
    try {
        const tool::Options options = tool::ParseCommandLine(arguments);
        const int status = options.run != nullptr ? options.run(options) : tool::ExitOk;
        errno = 0;
        if (!std::cout.flush()) {
            throw tool::Error("the output could not be written" + tool::BecauseOfErrno());
        }
        tool::interrupt::Check();
        return status;
    } catch (const tool::interrupt::Interruption&) {
        std::cout.flush();
        tool::interrupt::End();
    } catch (const std::exception& problem) {
        std::cerr << "sondrel: " << problem.what() << '\n';
        return tool::ExitError;
    }
}

} // namespace

int main(int count, char** arguments) {
    tool::interrupt::Listen();
    const tool::terminal::Console console;
    return Run(tool::host_system::Arguments(count, arguments));
}
