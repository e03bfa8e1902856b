// sondrel report: the readings. How they are shown is in report_text.cpp, report_json.cpp
// and report_html.cpp.
#include "base/trouble.h"
#include "commands/commands.h"
#include "terminal/interrupt.h"
#include "terminal/progress.h"

namespace tool {
namespace {

Reading WithoutCall(const Export& row, Status status, std::string meaning) {
    return {row, {}, {status, std::move(meaning)}};
}

Reading ReadSession(const Export& row, const std::optional<Session>& session) {
    if (!session) {
        return WithoutCall(row, Status::NotRun, "--no-session");
    }
    const std::int64_t opened = session->IsOpen() ? 1 : 0;
    Answer answer{.bare = std::to_string(opened), .number = opened};
    Classification classification = Classify(row, answer);
    return {row, std::move(answer), std::move(classification)};
}

} // namespace

Reading ReadOne(const Host& host, const Options& options, const Export& row,
                const std::optional<Session>& session) {
    const Address address = host.library.Find(row.name);
    if (address == nullptr) {
        return WithoutCall(row, Status::NotExported, "");
    }
    if (row.report == InReport::Skipped) {
        return WithoutCall(row, Status::NotRun, "it changes something");
    }
    if (row.report == InReport::Session) {
        return ReadSession(row, session);
    }
    Answer answer = Call(address, row, {std::string(row.sample), options.initCom});
    Classification classification = Classify(row, answer);
    return {row, std::move(answer), std::move(classification)};
}

void ReadAll(const Host& host, const Options& options, const ReadingSink& sink) {
    std::optional<Session> session;
    if (options.session) {
        OpenSession(session, host);
    }
    Progress progress;
    for (const Export& row : AllExports()) {
        interrupt::Check();
        progress.Begin("reading " + std::string(row.name));
        const Reading reading = ReadOne(host, options, row, session);
        progress.Clear();
        interrupt::Check();
        sink(reading);
    }
}

int Report(const Options& options) {
    const Host host(options);
    if (!options.html.empty()) {
        ReportAsPage(host, options);
    } else if (options.json) {
        ReportAsJson(host, options);
    } else {
        ReportAsText(host, options);
    }
    return ExitDone;
}

} // namespace tool
