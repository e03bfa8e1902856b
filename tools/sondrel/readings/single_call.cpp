#include "readings/single_call.h"

#include "base/error.h"

namespace tool {
namespace {

const Export& RowFor(const std::string& name, const std::vector<std::string>& arguments) {
    const Export& row = ExportNamed(name);
    if (arguments.size() != (row.argument.empty() ? 0u : 1u)) {
        throw Error(std::string(row.name) +
                    (row.argument.empty() ? " takes no argument"
                                          : " takes one argument: " + std::string(row.argument)) +
                    ", not " + std::to_string(arguments.size()));
    }
    return row;
}

} // namespace

SingleCall::SingleCall(const HostOptions& hostOptions, const ReadOptions& readOptions,
                       const std::string& name, const std::vector<std::string>& arguments)
    : m_row(RowFor(name, arguments)),
      m_host(hostOptions),
      m_address(AddressOf(m_host.library, m_row)),
      m_inputs{arguments.empty() ? "" : arguments.front(), readOptions.initCom} {
    if (readOptions.session && m_row.needsSession) {
        CallLog log(&m_host.library);
        OpenSession(m_session, m_host.library);
        m_sessionCalls = log.Take();
    }
}

Answer SingleCall::Make() const {
    return Call(m_address, m_row, m_inputs);
}

Reading SingleCall::Read() {
    CallLog log(&m_host.library);
    Answer answer = Make();
    return Explained(std::move(answer), log.IsObserved() ? std::optional(log.Take()) : std::nullopt);
}

Reading SingleCall::Explained(Answer answer, std::optional<std::vector<BoundaryCall>> calls) {
    Explainer explainer(calls.has_value());
    if (m_session) {
        explainer.SessionOpened(m_session->IsOpen(), m_sessionCalls);
    } else {
        explainer.NoSessionAsked();
    }
    Explanation explanation =
        explainer.Explain(m_row, answer, calls ? *std::move(calls) : std::vector<BoundaryCall>());
    return {m_row, std::move(answer), std::move(explanation.classification), explanation.state,
            std::move(explanation.cause)};
}

void SingleCall::CloseSession(const Answer& answer) const {
    const Address close = m_host.library.Find("ShutdownSondrel");
    if (m_row.report == InReport::Session && answer.text == "1" && close != nullptr) {
        close();
    }
}

} // namespace tool
