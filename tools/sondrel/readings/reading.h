// Calls exports as a report does.
#pragma once

#include "causes/call_log.h"
#include "causes/explainer.h"
#include "exports/calls.h"
#include "exports/classify.h"
#include "readings/host.h"

#include <functional>
#include <optional>

namespace tool {

struct ReadOptions {
    std::uint8_t initCom = 1;
    /// Open the driver session before a reading.
    bool session = true;
    /// Where the library is observed, its calls decide the states; otherwise the descriptions of the exports do.
    bool causes = true;
};

struct Reading {
    const Export& row;
    Answer answer;
    Classification classification;
    ReadingState state = ReadingState::Ok;
    std::optional<Cause> cause;
};

/// Whether the reading succeeded, at least partly.
bool HasValue(const Reading& reading);

/// Opens the session, or says on standard error that it could not be opened.
void OpenSession(std::optional<Session>& session, const Library& library);

class Reader {
public:
    /// Opens the session if the options say so.
    Reader(const Host& host, const ReadOptions& options);

    /// InitializeSondrel is not called again: the reader's own session is the answer.
    [[nodiscard]] Reading Read(const Export& row);

    /// Another sample of the same readings begins.
    void BeginSample() { m_explainer.BeginSample(); }

    /// All exports that a report calls, in the order of the header.
    void ReadAll(const std::function<void(const Reading&)>& sink);

    /// Whether the causes of states are known.
    [[nodiscard]] bool IsObserved() const { return m_log.IsObserved(); }

private:
    [[nodiscard]] Reading ReadSession(const Export& row);
    [[nodiscard]] Reading Explained(const Export& row, Answer answer, std::vector<BoundaryCall> calls);
    void OpenSession();
    void CheckIdentity();

    const Host& m_host;
    ReadOptions m_options;
    CallLog m_log;
    Explainer m_explainer;
    std::optional<Session> m_session;
    std::vector<BoundaryCall> m_sessionCalls;
};

} // namespace tool
