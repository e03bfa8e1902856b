// One export, called with arguments of the command line: `call` and `trace`.
#pragma once

#include "readings/reading.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

class SingleCall {
public:
    /// Throws Error if there is no such export, or if it takes other arguments.
    SingleCall(const HostOptions& hostOptions, const ReadOptions& readOptions, const std::string& name,
               const std::vector<std::string>& arguments);

    [[nodiscard]] const Export& Row() const { return m_row; }

    [[nodiscard]] const Host& OnHost() const { return m_host; }

    /// Whether the cause of a state is known.
    [[nodiscard]] bool IsObserved() const { return CallLog(&m_host.library).IsObserved(); }

    /// Null for the real machine.
    [[nodiscard]] const SimulatedMachine* Machine() const {
        return m_host.machine ? &*m_host.machine : nullptr;
    }

    /// A function of the called library; null if it has none of this name.
    [[nodiscard]] Address Find(std::string_view name) const { return m_host.library.Find(name); }

    /// Throws Error if the argument does not suit the export.
    [[nodiscard]] Answer Make() const;

    /// The same, with the calls that it makes if the library is observed.
    [[nodiscard]] Reading Read();

    /// What the answer means. Nothing for calls: the library is not observed.
    [[nodiscard]] Reading Explained(Answer answer, std::optional<std::vector<BoundaryCall>> calls);

    /// Closes the session that a call of InitializeSondrel has opened.
    void CloseSession(const Answer& answer) const;

private:
    const Export& m_row;
    const Host m_host;
    const Address m_address;
    const CallInputs m_inputs;
    std::optional<Session> m_session;
    std::vector<BoundaryCall> m_sessionCalls;
};

} // namespace tool
