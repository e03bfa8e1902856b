#include "readings/reading.h"

#include "terminal/interrupt.h"
#include "terminal/progress.h"

#include <iostream>

namespace tool {
namespace {

Reading NotCalled(const Export& row, Status status, std::string meaning) {
    const bool isMissing = status == Status::NotExported;
    Cause rule{.call = {}, .rule = isMissing ? "this library does not export it" : meaning, .remedy = {}};
    return {row,
            {},
            {status, std::move(meaning)},
            isMissing ? ReadingState::Absent : ReadingState::NoSession,
            std::move(rule)};
}

} // namespace

bool HasValue(const Reading& reading) {
    return HasValue(reading.classification.status);
}

void OpenSession(std::optional<Session>& session, const Library& library) {
    session.emplace(library);
    if (!session->IsOpen()) {
        std::cerr << "sondrel: the driver session could not be opened; readings that need it will fail\n";
    }
}

Reader::Reader(const Host& host, const ReadOptions& options)
    : m_host(host),
      m_options(options),
      m_log(options.causes ? &host.library : nullptr),
      m_explainer(m_log.IsObserved()) {
    if (options.session) {
        OpenSession();
    } else {
        m_explainer.NoSessionAsked();
    }
    if (!m_log.IsObserved()) {
        CheckIdentity();
    }
}

void Reader::OpenSession() {
    tool::OpenSession(m_session, m_host.library);
    m_sessionCalls = m_log.Take();
    m_explainer.SessionOpened(m_session->IsOpen(), m_sessionCalls);
}

/// An observed library shows in its calls whether the EC was identified; of another one it is asked.
void Reader::CheckIdentity() {
    const Export* const row = FindExport("EC_ReadEcFwRev");
    const Address address = row != nullptr ? m_host.library.Find(row->name) : nullptr;
    if (address != nullptr && !HasValue(Classify(*row, Call(address, *row, {})).status)) {
        m_explainer.IdentityIsMissing();
    }
}

Reading Reader::Explained(const Export& row, Answer answer, std::vector<BoundaryCall> calls) {
    Explanation explanation = m_explainer.Explain(row, answer, std::move(calls));
    return {row, std::move(answer), std::move(explanation.classification), explanation.state,
            std::move(explanation.cause)};
}

Reading Reader::Read(const Export& row) {
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
    m_log.Take();
    Answer answer = Call(address, row, {std::string(row.sample), m_options.initCom});
    return Explained(row, std::move(answer), m_log.Take());
}

Reading Reader::ReadSession(const Export& row) {
    if (!m_session) {
        return NotCalled(row, Status::NotRun, "--no-session");
    }
    const std::int64_t opened = m_session->IsOpen() ? 1 : 0;
    return Explained(row, {.text = std::to_string(opened), .number = opened}, m_sessionCalls);
}

void Reader::ReadAll(const std::function<void(const Reading&)>& sink) {
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
