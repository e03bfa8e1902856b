// sondrel call NAME [ARG...]
#include "commands.h"
#include "interrupt.h"
#include "progress.h"
#include "trouble.h"

#include <iostream>

namespace tool {

void CheckArgumentCount(const Export& row, const std::vector<std::string>& arguments) {
    const std::string_view wanted = row.shape->argument;
    if (arguments.size() == (wanted.empty() ? 0u : 1u)) {
        return;
    }
    throw Trouble(std::string(row.name) +
                  (wanted.empty() ? " takes no argument" : " takes one argument: " + std::string(wanted)) +
                  ", not " + std::to_string(arguments.size()));
}

void GiveBackSession(const Host& host, const Export& row, const Answer& answer) {
    const Address close = host.library.Find("ShutdownSondrel");
    if (row.traits.report == InReport::Session && answer.bare == "1" && close != nullptr) {
        close();
    }
}

int CallExport(const Options& options) {
    const Export& row = ExportNamed(options.name);
    CheckArgumentCount(row, options.arguments);
    const Host host(options);
    const Address address = host.library.Find(row.name);
    if (address == nullptr) {
        throw Trouble("this library does not export " + std::string(row.name));
    }
    std::optional<Session> session; // InitializeSondrel opens its own, and is not in need of one
    if (options.session && row.traits.session) {
        OpenSession(session, host);
    }
    const CallInputs inputs{options.arguments.empty() ? "" : options.arguments.front(), options.initCom};
    Progress progress;
    progress.Begin("calling " + std::string(row.name));
    const Answer answer = row.shape->call(address, row, inputs);
    progress.Clear();
    GiveBackSession(host, row, answer);
    interrupt::Check();
    if (row.shape != &shape::Nothing) {
        std::cout << answer.bare << '\n';
    }
    const Judgement judgement = Judge(row, answer);
    if (judgement.status != Status::Ok) {
        std::cerr << "sondrel: " << TextOf(judgement.status) << (judgement.meaning.empty() ? "" : ": ")
                  << judgement.meaning << '\n';
    }
    return judgement.status == Status::Faulty ? ExitFault : ExitDone;
}

} // namespace tool
