// What readings rely on, and which reading and boundary operations decide whether it is there.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace tool {

/// What no reading asks: calls of the tool.
enum class OwnCheck : std::uint8_t { None, Library, Exports, AppPathWritable, User, Session, Elevation };

struct Precondition {
    /// For programs.
    std::string_view name;
    std::string_view title;
    /// The export that asks for it; empty for a check of the tool.
    std::string_view reading = {};
    /// The operations that decide, by the beginnings of their names.
    std::array<std::string_view, 4> operations = {};
    /// Only calls on such a subject decide.
    std::string_view subject = {};
    /// Only this code means that it is missing: another failure shows that it is there. 0: every failure.
    std::uint32_t onlyCode = 0;
    /// An answer without a row, value or item shows that it is there.
    bool emptyIsMet = false;
    /// It is not there if what may be missing in a normal course is.
    bool absenceIsUnmet = false;
    OwnCheck check = OwnCheck::None;
};

std::span<const Precondition> AllPreconditions();

} // namespace tool
