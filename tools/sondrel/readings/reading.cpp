#include "readings/reading.h"

#include "terminal/interrupt.h"
#include "terminal/progress.h"

#include <iostream>

namespace tool {
namespace {

Reading NotCalled(const Export& row, Status status, std::string meaning) {
    return {row, {}, {status, std::move(meaning)}};
}

Reading Classified(const Export& row, Answer answer) {
    Classification classification = Classify(row, answer);
    return {row, std::move(answer), std::move(classification)};
}

} // namespace

bool HasValue(const Reading& reading) {
    return reading.classification.status == Status::Ok || reading.classification.status == Status::Partly;
}

void OpenSession(std::optional<Session>& session, const Library& library) {
    session.emplace(library);
    if (!session->IsOpen()) {
        std::cerr << "sondrel: the driver session could not be opened; readings that need it will fail\n";
    }
}

Reader::Reader(const Host& host, const ReadOptions& options) : m_host(host), m_options(options) {
    if (options.session) {
        OpenSession(m_session, host.library);
    }
}

Reading Reader::Read(const Export& row) const {
    const Address address = m_host.library.Find(row.name);
    if (address == nullptr) {
        return NotCalled(row, Status::NotExported, "");
    }
    if (row.report == InReport::Skipped) {
        return NotCalled(row, Status::NotRun, "it changes something");
    }
    if (row.report == InReport::Session) {
        return ReadSession(row);
    }
    return Classified(row, Call(address, row, {std::string(row.sample), m_options.initCom}));
}

Reading Reader::ReadSession(const Export& row) const {
    if (!m_session) {
        return NotCalled(row, Status::NotRun, "--no-session");
    }
    const std::int64_t opened = m_session->IsOpen() ? 1 : 0;
    return Classified(row, {.text = std::to_string(opened), .number = opened});
}

void Reader::ReadAll(const std::function<void(const Reading&)>& sink) const {
    Progress progress;
    for (const Export& row : AllExports()) {
        interrupt::Check();
        progress.Begin("reading " + std::string(row.name));
        const Reading reading = Read(row);
        progress.Clear();
        interrupt::Check();
        sink(reading);
    }
}

} // namespace tool
