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
        OpenSession(m_session, m_host.library);
    }
}

Answer SingleCall::Make() const {
    return Call(m_address, m_row, m_inputs);
}

void SingleCall::CloseSession(const Answer& answer) const {
    const Address close = m_host.library.Find("ShutdownSondrel");
    if (m_row.report == InReport::Session && answer.text == "1" && close != nullptr) {
        close();
    }
}

} // namespace tool
