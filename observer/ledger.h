// What is open: every handle that the library was given and has not released, and the names of handles.
#pragma once

#include "observer/value.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace observer {

/// Something that is open.
struct OpenThing {
    HandleKind kind = HandleKind::File;
    std::u16string openedOn;      // a path, a key, a process id; may be empty
    std::uint64_t exportCall = 0; // in which it was opened; 0: outside any
    std::uint32_t number = 0;     // within that export call
    std::uint32_t count = 0;      // how often it has to be closed
};

/// "key SOFTWARE\Vesk", "IWbemServices"
std::string Printed(const OpenThing& thing);

/// Not synchronised. What needs memory may throw; `Close` does not.
class Ledger {
public:
    /// A handle was opened; `number` is its number if it is new. COM objects may be handed out several times and are
    /// counted; any other handle that is open already was closed without the observer's knowledge. True when it is
    /// new.
    bool Open(HandleKind kind, std::uintptr_t handle, std::u16string_view openedOn, std::uint64_t exportCall,
              std::uint32_t number);

    /// A handle was closed. Its name stays known as long as the caller holds the returned value.
    void Close(HandleKind kind, std::uintptr_t handle) noexcept;

    /// A handle that is neither opened nor closed, a window for instance, is numbered where an export call meets it
    /// first. True when this was now.
    bool Meet(HandleKind kind, std::uintptr_t handle, std::uint64_t exportCall, std::uint32_t number);

    /// The name under which the export call knows the handle.
    [[nodiscard]] HandleName NameOf(HandleKind kind, std::uintptr_t handle, std::uint64_t exportCall) const;

    [[nodiscard]] std::vector<OpenThing> Open() const;

private:
    using Key = std::pair<HandleKindRow::Space, std::uintptr_t>;

    std::map<Key, OpenThing> m_open;
    std::map<Key, OpenThing> m_met;
};

} // namespace observer
