// sondrel call NAME [ARG...]
#include "base/error.h"
#include "base/text.h"
#include "commands/commands.h"
#include "readings/single_call.h"
#include "terminal/interrupt.h"
#include "terminal/progress.h"

#include <iostream>

namespace tool {

int CallExport(const Options& options) {
    SingleCall call(options.host, options.reading, options.name, options.arguments);
    Progress progress;
    progress.Begin("calling " + std::string(call.Row().name));
    const Reading reading = call.Read();
    const Answer& answer = reading.answer;
    progress.Clear();
    call.CloseSession(answer);
    interrupt::Check();
    if (call.Row().signature != Signature::NoResult) {
        std::cout << answer.text << '\n';
    }
    const Classification& classification = reading.classification;
    if (classification.status != Status::Ok) {
        const bool isKnown = reading.cause && classification.status == Status::Failed;
        const std::string why = isKnown                                ? TextWithRemedy(*reading.cause)
                                : reading.cause && reading.cause->call ? TextWithRemedy(*reading.cause)
                                                                       : classification.meaning;
        std::cerr << "sondrel: " << (isKnown ? TextOf(reading.state) : TextOf(classification.status))
                  << (why.empty() ? "" : ": ") << OnOneLine(why) << '\n';
    }
    return classification.status == Status::Faulty ? ExitFinding : ExitOk;
}

} // namespace tool
