#include "observer/ledger.h"

#include "observer/record.h"

namespace observer {
namespace {

using Space = HandleKindRow::Space;

HandleName NameAmong(const std::map<std::pair<Space, std::uintptr_t>, OpenThing>& things, HandleKind kind,
                     std::uintptr_t handle, std::uint64_t exportCall) {
    HandleName name{.kind = kind, .platforms = handle};
    if (const auto found = things.find({RowOf(kind).space, handle}); found != things.end()) {
        const OpenThing& thing = found->second;
        name.kind = thing.kind;
        if (thing.exportCall == exportCall) {
            name.number = thing.number;
        } else {
            name.openedOn = thing.openedOn;
        }
    }
    return name;
}

} // namespace

std::string Printed(const OpenThing& thing) {
    std::string text(RowOf(thing.kind).name);
    if (!thing.openedOn.empty()) {
        const std::string quoted = Printed(Value{thing.openedOn});
        text.append(1, ' ').append(quoted, 1, quoted.size() - 2);
    }
    return text;
}

bool Ledger::Open(HandleKind kind, std::uintptr_t handle, std::u16string_view openedOn,
                  std::uint64_t exportCall, std::uint32_t number) {
    const Space space = RowOf(kind).space;
    const auto [place, isNew] = m_open.try_emplace({space, handle});
    OpenThing& thing = place->second;
    const bool counted = space == Space::Objects || space == Space::Apartments;
    if (!isNew && counted) {
        ++thing.count;
        return false;
    }
    thing = {kind, std::u16string(openedOn), exportCall, number, 1};
    return true;
}

void Ledger::Close(HandleKind kind, std::uintptr_t handle) noexcept {
    const auto found = m_open.find({RowOf(kind).space, handle});
    if (found != m_open.end() && --found->second.count == 0) {
        m_open.erase(found);
    }
}

bool Ledger::Meet(HandleKind kind, std::uintptr_t handle, std::uint64_t exportCall, std::uint32_t number) {
    OpenThing& thing = m_met[{RowOf(kind).space, handle}];
    if (thing.number != 0 && thing.exportCall == exportCall) {
        return false;
    }
    thing = {.kind = kind, .exportCall = exportCall, .number = number};
    return true;
}

HandleName Ledger::NameOf(HandleKind kind, std::uintptr_t handle, std::uint64_t exportCall) const {
    return NameAmong(IsOnlyMet(kind) ? m_met : m_open, kind, handle, exportCall);
}

std::vector<OpenThing> Ledger::Open() const {
    std::vector<OpenThing> things;
    things.reserve(m_open.size());
    for (const auto& [key, thing] : m_open) {
        things.push_back(thing);
    }
    return things;
}

} // namespace observer
