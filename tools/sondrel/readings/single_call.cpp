#include "readings/single_call.h"

#include "base/trouble.h"

namespace tool {
namespace {

const Export& RowFor(const Options& options) {
    const Export& row = ExportNamed(options.name);
    const std::string_view wanted = row.argument;
    if (options.arguments.size() != (wanted.empty() ? 0u : 1u)) {
        throw Trouble(
            std::string(row.name) +
            (wanted.empty() ? " takes no argument" : " takes one argument: " + std::string(wanted)) +
            ", not " + std::to_string(options.arguments.size()));
    }
    return row;
}

} // namespace

SingleCall::SingleCall(const Options& options)
    : m_row(RowFor(options)),
      m_host(options),
      m_address(AddressOf(m_host.library, m_row)),
      m_inputs{options.arguments.empty() ? "" : options.arguments.front(), options.initCom} {
    if (options.session && m_row.needsSession) { // InitializeSondrel opens its own, and is not in need of one
        OpenSession(m_session, m_host);
    }
}

Answer SingleCall::Make() const {
    return Call(m_address, m_row, m_inputs);
}

void SingleCall::GiveBackSession(const Answer& answer) const {
    const Address close = m_host.library.Find("ShutdownSondrel");
    if (m_row.report == InReport::Session && answer.bare == "1" && close != nullptr) {
        close();
    }
}

} // namespace tool
