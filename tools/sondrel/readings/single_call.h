// One export, ready to be called as the command line says: `call` and `trace`.
#pragma once

#include "commands/commands.h"

#include <optional>

namespace tool {

class SingleCall {
public:
    /// Throws Trouble where there is nothing to call, or not with these arguments.
    explicit SingleCall(const Options& options);

    [[nodiscard]] const Export& Row() const { return m_row; }

    /// Null for the real one.
    [[nodiscard]] const SimulatedMachine* Machine() const {
        return m_host.machine ? &*m_host.machine : nullptr;
    }

    /// A routine of the library that is called; null where it has none of this name.
    [[nodiscard]] Address Find(std::string_view name) const { return m_host.library.Find(name); }

    /// Throws Trouble where the argument is none for the export.
    [[nodiscard]] Answer Make() const;

    /// Gives back the session that a call of InitializeSondrel has opened.
    void GiveBackSession(const Answer& answer) const;

private:
    const Export& m_row;
    const Host m_host;
    const Address m_address;
    const CallInputs m_inputs;
    std::optional<Session> m_session;
};

} // namespace tool
