// sondrel call NAME [ARG...]
#include "base/error.h"
#include "commands/commands.h"
#include "readings/single_call.h"
#include "terminal/interrupt.h"
#include "terminal/progress.h"

#include <iostream>

namespace tool {

int CallExport(const Options& options) {
    const SingleCall call(options.host, options.reading, options.name, options.arguments);
    Progress progress;
    progress.Begin("calling " + std::string(call.Row().name));
    const Answer answer = call.Make();
    progress.Clear();
    call.CloseSession(answer);
    interrupt::Check();
    if (call.Row().signature != Signature::NoResult) {
        std::cout << answer.text << '\n';
    }
    const Classification classification = Classify(call.Row(), answer);
    if (classification.status != Status::Ok) {
        std::cerr << "sondrel: " << TextOf(classification.status)
                  << (classification.meaning.empty() ? "" : ": ") << classification.meaning << '\n';
    }
    return classification.status == Status::Faulty ? ExitFinding : ExitOk;
}

} // namespace tool
