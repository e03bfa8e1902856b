// sondrel call NAME [ARG...]
#include "base/error.h"
#include "base/text.h"
#include "commands/commands.h"
#include "readings/reading_json.h"
#include "readings/single_call.h"
#include "terminal/interrupt.h"
#include "terminal/progress.h"

#include <nlohmann/json.hpp>

#include <iostream>

namespace tool {

namespace {

void PrintAsJson(const SingleCall& call, const Reading& reading, const Options& options) {
    nlohmann::ordered_json document = ReadingsDocument(call.OnHost(), call.IsObserved());
    nlohmann::ordered_json& object = document["readings"][std::string(reading.row.name)];
    object = JsonOf(reading);
    if (!options.arguments.empty()) {
        object["argument"] = options.arguments.front();
    }
    std::cout << TextOf(document);
}

void PrintAsText(const Reading& reading) {
    if (reading.row.signature != Signature::NoResult) {
        std::cout << reading.answer.text << '\n';
    }
    const Classification& classification = reading.classification;
    if (classification.status == Status::Ok) {
        return;
    }
    const bool isKnown = reading.cause && classification.status == Status::Failed;
    const std::string why = isKnown || (reading.cause && reading.cause->call) ? TextWithRemedy(*reading.cause)
                                                                              : classification.meaning;
    std::cerr << "sondrel: " << (isKnown ? TextOf(reading.state) : TextOf(classification.status))
              << (why.empty() ? "" : ": ") << OnOneLine(why) << '\n';
}

} // namespace

int CallExport(const Options& options) {
    SingleCall call(options.host, options.reading, options.name, options.arguments);
    Progress progress;
    progress.Begin("calling " + std::string(call.Row().name));
    const Reading reading = call.Read();
    progress.Clear();
    call.CloseSession(reading.answer);
    interrupt::Check();
    if (options.json) {
        PrintAsJson(call, reading, options);
    } else {
        PrintAsText(reading);
    }
    return reading.classification.status == Status::Faulty ? ExitFinding : ExitOk;
}

} // namespace tool
